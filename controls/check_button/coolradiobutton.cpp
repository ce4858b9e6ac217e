#include "controls/check_button/coolradiobutton.h"

#include "platform/drawing/rounding.h"
#include "platform/widgets/pointer_shapes.h"

#include <QCursor>
#include <QTimer>

#include <chrono>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

using namespace std::chrono_literals;

constexpr Color buttonFace = Color::system(SystemColor::ButtonFace);
constexpr Color disabledCaption{0x92A1A1};
constexpr Color blue{0xFF0000};
constexpr qint16 leftButton = 1;

} // namespace

Coolradiobutton::Coolradiobutton(QWidget* parent)
    : ControlWidget(ScaleMode::Twips, parent), m_Timer1(new QTimer(this))
{
    setFocusPolicy(Qt::StrongFocus);
    drawingSurface().setBackColor(m_BackColor);
    ShowNormalGlyph();
    m_Timer1->setObjectName(u"Timer1"_s);
    connect(m_Timer1, &QTimer::timeout, this, &Coolradiobutton::noticeLeaving);
    m_Timer1->start(10ms);
}

void Coolradiobutton::InitProperties()
{
    setCaption(displayName());
    setEnabled(true);
    setValue(false);
    setFont(ambientFont());
    setBackColor(buttonFace);
    setForeColor({0});
    m_HotColor = blue;
    m_HotUnderLine = true;
    m_BtnType = 1;
}

void Coolradiobutton::ReadProperties(const PropertyBag& bag)
{
    m_BtnType = bag.readInt16(u"BtnType"_s, 1);
    setValue(bag.readBool(u"Value"_s, false));
    setCaption(bag.readString(u"Caption"_s, displayName()));
    setEnabled(bag.readBool(u"Enabled"_s, true));
    setFont(bag.readFont(u"Font"_s, ambientFont()));
    setBackColor(bag.readColor(u"BackColor"_s, buttonFace));
    setForeColor(bag.readColor(u"ForeColor"_s, {0}));
    m_HotColor = bag.readColor(u"HotColor"_s, blue);
    usePointer(bag.readInt16(u"MousePointer"_s, 0));
    setMouseIcon(bag.readPicture(u"MouseIcon"_s));
    m_HotUnderLine = bag.readBool(u"HotUnderLine"_s, true);
}

void Coolradiobutton::WriteProperties(PropertyBag& bag) const
{
    bag.writeInt32(u"BtnType"_s, m_BtnType, 1);
    bag.writeFont(u"Font"_s, m_Font, ambientFont());
    bag.writeBool(u"Value"_s, m_Value, false);
    bag.writeString(u"Caption"_s, m_caption, displayName());
    bag.writeBool(u"Enabled"_s, Enabled(), true);
    bag.writeColor(u"BackColor"_s, m_BackColor, buttonFace);
    bag.writeColor(u"ForeColor"_s, m_ForeColor, {0});
    bag.writeColor(u"HotColor"_s, m_HotColor, blue);
    bag.writeInt32(u"MousePointer"_s, m_mousePointer, 0);
    bag.writePicture(u"MouseIcon"_s, m_mouseIcon);
    bag.writeBool(u"HotUnderLine"_s, m_HotUnderLine, true);
}

void Coolradiobutton::setBtnType(qint32 New_BtnType)
{
    m_BtnType = New_BtnType;
    Q_EMIT propertyChanged(u"BtnType"_s);
    ShowNormalGlyph();
}

void Coolradiobutton::setValue(bool New_Value)
{
    const bool isOther = m_Value != New_Value;
    m_Value = New_Value;
    ShowNormalGlyph();
    Q_EMIT propertyChanged(u"Value"_s);
    if (isOther) {
        QAccessible::State changed;
        changed.checked = true;
        QAccessibleStateChangeEvent event(this, changed);
        QAccessible::updateAccessibility(&event);
    }
}

void Coolradiobutton::setCaption(const QString& New_Caption)
{
    m_caption = New_Caption;
    paint();
    Q_EMIT propertyChanged(u"Caption"_s);
}

void Coolradiobutton::setEnabled(bool New_Enabled)
{
    setSurfaceEnabled(New_Enabled);
    ShowNormalGlyph();
    showRestingColor();
}

void Coolradiobutton::setFont(const vistrel::Font& New_Font)
{
    m_Font = m_captionFont = New_Font;
    paint();
    Q_EMIT propertyChanged(u"Font"_s);
}

void Coolradiobutton::setBackColor(Color New_BackColor)
{
    m_BackColor = New_BackColor;
    Q_EMIT propertyChanged(u"BackColor"_s);
    drawingSurface().setBackColor(m_BackColor);
    paint();
}

void Coolradiobutton::setForeColor(Color New_ForeColor)
{
    m_ForeColor = New_ForeColor;
    Q_EMIT propertyChanged(u"ForeColor"_s);
    showRestingColor();
}

void Coolradiobutton::setHotColor(Color New_HotColor)
{
    m_HotColor = New_HotColor;
    Q_EMIT propertyChanged(u"HotColor"_s);
}

void Coolradiobutton::setMousePointer(qint16 New_MousePointer)
{
    usePointer(New_MousePointer);
    Q_EMIT propertyChanged(u"MousePointer"_s);
}

void Coolradiobutton::setMouseIcon(const vistrel::Picture& New_MouseIcon)
{
    m_mouseIcon = New_MouseIcon;
    usePointer(m_mousePointer);
    Q_EMIT propertyChanged(u"MouseIcon"_s);
}

void Coolradiobutton::usePointer(qint16 MousePointer)
{
    setCursor(pointerShape(MousePointer, m_mouseIcon));
    m_mousePointer = MousePointer;
}

void Coolradiobutton::setHotUnderLine(bool New_HotUnderLine)
{
    m_HotUnderLine = New_HotUnderLine;
    Q_EMIT propertyChanged(u"HotUnderLine"_s);
}

void Coolradiobutton::ShowNormalGlyph()
{
    if (Enabled())
        showGlyph(CheckLook::Normal);
    else
        ShowDisabledGlyph();
}

void Coolradiobutton::ShowDisabledGlyph() { showGlyph(CheckLook::Disabled); }

void Coolradiobutton::showGlyph(CheckLook look)
{
    m_p = checkGlyph(m_BtnType, look, m_Value);
    paint();
}

void Coolradiobutton::showRestingColor()
{
    m_captionColor = Enabled() ? m_ForeColor : disabledCaption;
    paint();
}

CheckLayout Coolradiobutton::layout() const
{
    return layoutCheckButton(Height(),
                             QSizeF(surface().textWidth(m_caption), surface().textHeight(m_caption)));
}

void Coolradiobutton::paint()
{
    Surface& canvas = drawingSurface();
    canvas.setFont(m_captionFont);
    canvas.setForeColor(m_captionColor);
    canvas.clear();
    const CheckLayout parts = layout();
    const QSizeF glyph = QSizeF(m_p.size()) * twipsPerPixel;
    canvas.drawPicture(m_p, static_cast<float>(parts.p.x()), static_cast<float>(parts.p.y()),
                       static_cast<float>(glyph.width()), static_cast<float>(glyph.height()));
    canvas.setCurrentX(static_cast<float>(parts.lbl.x()));
    canvas.setCurrentY(static_cast<float>(parts.lbl.y()));
    canvas.print(m_caption);
}

void Coolradiobutton::surfaceMouseMove(qint16 Button, qint16 Shift, float X, float Y)
{
    if (!m_Timer1->isActive()) m_Timer1->start();
    if (const QRectF part = layout().partAt({X, Y}); !part.isEmpty()) {
        X = static_cast<float>(part.x());
        Y = static_cast<float>(part.y());
    }
    const bool isInside = X >= 0 && X <= surface().ScaleWidth() && Y >= 0 && Y <= surface().ScaleHeight();
    if (!isInside) return;
    Q_EMIT MouseMove(Button, Shift, X, Y);
    m_captionColor = m_HotColor;
    if (m_HotUnderLine) m_captionFont.underline = true;
    if (Enabled())
        showGlyph(Button == leftButton ? CheckLook::Pressed : CheckLook::Hover);
    else
        paint();
}

void Coolradiobutton::surfaceMouseDown(qint16 Button, qint16 Shift, float X, float Y)
{
    if (Enabled()) showGlyph(CheckLook::Pressed);
    raiseFromPart(&Coolradiobutton::MouseDown, Button, Shift, X, Y);
}

void Coolradiobutton::surfaceMouseUp(qint16 Button, qint16 Shift, float X, float Y)
{
    raiseFromPart(&Coolradiobutton::MouseUp, Button, Shift, X, Y);
}

void Coolradiobutton::raiseFromPart(MouseSignal signal, qint16 Button, qint16 Shift, float X, float Y)
{
    const QRectF part = layout().partAt({X, Y});
    X -= static_cast<float>(part.x());
    Y -= static_cast<float>(part.y());
    Q_EMIT(this->*signal)(Button, Shift, X, Y);
}

void Coolradiobutton::surfaceClick()
{
    Q_EMIT Click();
    setValue(!m_Value);
}

void Coolradiobutton::surfaceKeyDown(qint16& KeyCode, qint16& Shift) { Q_EMIT KeyDown(KeyCode, Shift); }

void Coolradiobutton::surfaceKeyPress(qint16& KeyAscii) { Q_EMIT KeyPress(KeyAscii); }

void Coolradiobutton::surfaceKeyUp(qint16& KeyCode, qint16& Shift) { Q_EMIT KeyUp(KeyCode, Shift); }

void Coolradiobutton::surfaceResize() { paint(); }

void Coolradiobutton::noticeLeaving()
{
    const QPoint at = mapFromGlobal(QCursor::pos());
    const bool isOutside = at.x() < 0 || at.y() < 0 || at.x() > width() || at.y() > height();
    if (!isOutside) return;
    if (m_HotUnderLine) m_captionFont.underline = false;
    showRestingColor();
    m_Timer1->stop();
    Q_EMIT MouseOut();
    ShowNormalGlyph();
}

AccessibleFacts Coolradiobutton::accessibleFacts() const
{
    AccessibleFacts facts;
    facts.role = QAccessible::CheckBox;
    facts.name = m_caption.trimmed();
    facts.state.checkable = true;
    facts.state.checked = m_Value;
    facts.canBePressed = true;
    return facts;
}

void Coolradiobutton::accessiblePress() { surfaceClick(); }

} // namespace vistrel
