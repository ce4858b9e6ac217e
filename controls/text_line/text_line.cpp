#include "controls/text_line/text_line.h"

#include "controls/text_line/edit_field.h"
#include "platform/drawing/rounding.h"
#include "platform/runtime_error.h"
#include "platform/widgets/pointer_shapes.h"

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr float initialWidth = 1500;
constexpr float initialHeight = 255;
constexpr Color frameColor{0x8496A5};
constexpr int unlimited = std::numeric_limits<int>::max();

qint32 notNegative(qint32 value)
{
    if (value < 0) throw RuntimeError(RuntimeError::Number::InvalidPropertyValue);
    return value;
}

} // namespace

TextLine::TextLine(QWidget* parent)
    : ControlWidget(ScaleMode::Twips, parent),
      m_txtText(new EditField(this)),
      m_tppX(twipsPerPixel),
      m_tppY(twipsPerPixel)
{
    m_txtText->setObjectName(u"txtText"_s);
    limitLength(0);
    m_txtText->setFont(m_font.toQFont());
    usePointer(0);
    setFocusProxy(m_txtText);
    applyColors();
    forwardEvents();
    setSizeTwips(initialWidth, initialHeight);
}

// The field goes down later than this, and may lose the focus on its way.
TextLine::~TextLine() { m_txtText->disconnect(this); }

void TextLine::forwardEvents()
{
    connect(m_txtText, &EditField::Click, this, &TextLine::Click);
    connect(m_txtText, &EditField::DblClick, this, &TextLine::DblClick);
    connect(m_txtText, &EditField::KeyDown, this, &TextLine::KeyDown);
    connect(m_txtText, &EditField::KeyPress, this, &TextLine::KeyPress);
    connect(m_txtText, &EditField::KeyUp, this, &TextLine::KeyUp);
    connect(m_txtText, &EditField::MouseDown, this, &TextLine::MouseDown);
    connect(m_txtText, &EditField::MouseMove, this, &TextLine::MouseMove);
    connect(m_txtText, &EditField::MouseUp, this, &TextLine::MouseUp);
    connect(m_txtText, &EditField::textChanged, this, &TextLine::Change);
    connect(m_txtText, &EditField::pointerMoved, this, &TextLine::trackPointer);
    connect(m_txtText, &EditField::pointerLeft, this, [this] {
        if (m_isTracking) trackPointer(false);
        m_isTracking = false;
    });
    connect(m_txtText, &EditField::focusGained, this, [this] {
        HoverEnter();
        m_hasFocus = true;
    });
    connect(m_txtText, &EditField::focusLost, this, [this] {
        m_hasFocus = m_isTracking = false;
        HoverLeave();
    });
}

void TextLine::trackPointer(bool isInside)
{
    if (m_hasFocus) return;
    if (!isInside) {
        m_isTracking = false;
        HoverLeave();
    } else if (!m_isTracking) {
        m_isTracking = true;
        HoverEnter();
    }
}

void TextLine::HoverEnter()
{
    Q_EMIT MouseOver();
    if (m_hoverEffect && !m_createdAtRunTime) ShowFrame(false);
}

void TextLine::HoverLeave()
{
    Q_EMIT MouseOut();
    if (m_hoverEffect && !m_createdAtRunTime) ShowFrame(true);
}

void TextLine::ShowFrame(bool visible)
{
    m_frameVisible = visible;
    drawLines();
}

void TextLine::surfaceResize()
{
    Q_EMIT Resize();
    m_layout = layoutTextLine(Width(), Height(), m_tppX, m_tppY);
    setSizeTwips(m_layout.width, m_layout.height);
    const QRectF& field = m_layout.field;
    m_txtText->setGeometry(twipsToPixels(field.x()), twipsToPixels(field.y()), twipsToPixels(field.width()),
                           twipsToPixels(field.height()));
    drawLines();
}

void TextLine::drawLines()
{
    Surface& canvas = drawingSurface();
    canvas.clear();
    const auto draw = [&](const FrameLine& line, Color color) {
        canvas.drawLine(line.X1, line.Y1, line.X2, line.Y2, color);
    };
    if (m_frameVisible)
        std::for_each_n(m_layout.LLine.begin(), 4, [&](const FrameLine& line) { draw(line, frameColor); });
    if (m_layout.IsTall == 1) draw(m_layout.LLine.back(), m_fieldColor);
}

void TextLine::showEvent(QShowEvent* event)
{
    m_txtText->setAccessibleName(accessibleName());
    ControlWidget::showEvent(event);
}

AccessibleFacts TextLine::accessibleFacts() const
{
    AccessibleFacts facts;
    facts.role = QAccessible::Grouping; // The edit field inside is what can be edited.
    facts.value = Text();
    return facts;
}

void TextLine::applyColors()
{
    QPalette palette = classicPalette();
    palette.setColor(QPalette::Base, m_fieldColor.toQColor());
    palette.setColor(QPalette::Active, QPalette::Text, m_foreColor.toQColor());
    palette.setColor(QPalette::Inactive, QPalette::Text, m_foreColor.toQColor());
    m_txtText->setPalette(palette);
}

void TextLine::Refresh() { m_txtText->repaint(); }

void TextLine::setForeColor(Color New_ForeColor)
{
    m_foreColor = New_ForeColor;
    applyColors();
    Q_EMIT propertyChanged(u"ForeColor"_s);
}

bool TextLine::Enabled() const { return m_txtText->isEnabledTo(this); }

void TextLine::setEnabled(bool New_Enabled)
{
    m_txtText->setEnabled(New_Enabled);
    Q_EMIT propertyChanged(u"Enabled"_s);
}

void TextLine::setFont(const vistrel::Font& New_Font)
{
    m_font = New_Font;
    m_txtText->setFont(m_font.toQFont());
    Q_EMIT propertyChanged(u"Font"_s);
}

bool TextLine::Locked() const { return m_txtText->isReadOnly(); }

void TextLine::setLocked(bool New_Locked)
{
    m_txtText->setReadOnly(New_Locked);
    Q_EMIT propertyChanged(u"Locked"_s);
}

qint32 TextLine::MaxLength() const
{
    return m_txtText->maxLength() == unlimited ? 0 : m_txtText->maxLength();
}

void TextLine::limitLength(qint32 characters)
{
    m_txtText->setMaxLength(notNegative(characters) == 0 ? unlimited : characters);
}

void TextLine::setMaxLength(qint32 New_MaxLength)
{
    limitLength(New_MaxLength);
    Q_EMIT propertyChanged(u"MaxLength"_s);
}

void TextLine::usePointer(qint16 MousePointer)
{
    m_txtText->setCursor(pointerShape(MousePointer, m_mouseIcon, Qt::IBeamCursor));
    m_mousePointer = MousePointer;
}

void TextLine::setMousePointer(qint16 New_MousePointer)
{
    usePointer(New_MousePointer);
    Q_EMIT propertyChanged(u"MousePointer"_s);
}

void TextLine::setMouseIcon(const vistrel::Picture& New_MouseIcon)
{
    m_mouseIcon = New_MouseIcon;
    usePointer(m_mousePointer);
    Q_EMIT propertyChanged(u"MouseIcon"_s);
}

qint32 TextLine::SelLength() const { return m_txtText->selectionLength(); }

void TextLine::select(qint32 start, qint32 length)
{
    const qint32 cutStart = std::min(notNegative(start), static_cast<qint32>(Text().size()));
    m_txtText->setSelection(cutStart, notNegative(length));
}

void TextLine::setSelLength(qint32 New_SelLength)
{
    select(SelStart(), New_SelLength);
    Q_EMIT propertyChanged(u"SelLength"_s);
}

qint32 TextLine::SelStart() const
{
    return m_txtText->hasSelectedText() ? m_txtText->selectionStart() : m_txtText->cursorPosition();
}

void TextLine::setSelStart(qint32 New_SelStart)
{
    select(New_SelStart, 0);
    Q_EMIT propertyChanged(u"SelStart"_s);
}

QString TextLine::SelText() const { return m_txtText->selectedText(); }

void TextLine::setSelText(const QString& New_SelText)
{
    m_txtText->insert(New_SelText);
    Q_EMIT propertyChanged(u"SelText"_s);
}

QString TextLine::Text() const { return m_txtText->text(); }

void TextLine::setFieldText(const QString& text)
{
    m_txtText->setText(text);
    m_txtText->setCursorPosition(0);
}

void TextLine::setText(const QString& New_Text)
{
    setFieldText(New_Text);
    Q_EMIT propertyChanged(u"Text"_s);
}

QString TextLine::ToolTipText() const { return m_txtText->toolTip(); }

void TextLine::setToolTipText(const QString& New_ToolTipText)
{
    m_txtText->setToolTip(New_ToolTipText);
    Q_EMIT propertyChanged(u"ToolTipText"_s);
}

void TextLine::setWhatsThisHelpID(qint32 New_WhatsThisHelpID)
{
    m_whatsThisHelpID = New_WhatsThisHelpID;
    Q_EMIT propertyChanged(u"WhatsThisHelpID"_s);
}

void TextLine::setBorderColor(Color New_BorderColor)
{
    drawingSurface().setBackColor(New_BorderColor);
    drawLines();
    Q_EMIT propertyChanged(u"BorderColor"_s);
}

void TextLine::setHoverEffect(bool New_HoverEffect)
{
    m_hoverEffect = New_HoverEffect;
    Q_EMIT propertyChanged(u"HoverEffect"_s);
}

void TextLine::setBackColor(Color New_BackColor)
{
    m_backColor = New_BackColor;
    Q_EMIT propertyChanged(u"BackColor"_s);
}

QString TextLine::ScrollBars() const { return u"0"_s; }

} // namespace vistrel
