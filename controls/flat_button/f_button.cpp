#include "controls/flat_button/f_button.h"

#include "controls/flat_button/button_layout.h"
#include "platform/drawing/rounding.h"

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr float edgeInset = 10; // Twips from the far edges to the lines along them.
constexpr Color buttonFace = Color::system(SystemColor::ButtonFace);
constexpr Color buttonText = Color::system(SystemColor::ButtonText);
constexpr Color white = Color::rgb(255, 255, 255);

} // namespace

FButton::FButton(QWidget* parent) : ControlWidget(ScaleMode::Twips, parent), m_caption(u"Flash Button"_s)
{
    setFocusPolicy(Qt::ClickFocus);
}

void FButton::InitProperties()
{
    m_style = 0;
    m_mouseOnColor = {0x87CDFC};
    m_mouseDownColor = {0xC5D6D9};
    m_styleColor = {0xB17600};
    m_style3DColor1 = {0xFFFFFF};
    m_style3DColor2 = {0x808080};
    m_curBackColor = BackColor();
    drawingSurface().setFont(ambientFont());
    m_ifDraw = false;
    m_hovForceColor = {0};
}

void FButton::ReadProperties(const PropertyBag& bag)
{
    m_caption = bag.readString(u"Caption"_s, u"Flat Button"_s);
    drawingSurface().setBackColor(bag.readColor(u"BackColor"_s, buttonFace));
    m_curBackColor = BackColor();
    drawingSurface().setForeColor(bag.readColor(u"ForeColor"_s, buttonText));
    m_mouseDownColor = bag.readColor(u"MouseDownColor"_s, buttonText);
    m_mouseOnColor = bag.readColor(u"MouseOnColor"_s, buttonText);
    m_styleColor = bag.readColor(u"StyleColor"_s, buttonText);
    m_style3DColor1 = bag.readColor(u"Style3dColor1"_s, buttonText);
    m_style3DColor2 = bag.readColor(u"Style3dColor2"_s, buttonText);
    m_style = bag.readInt32(u"style"_s, 0);
    setSurfaceEnabled(bag.readBool(u"Enabled"_s, true));
    drawingSurface().setFont(bag.readFont(u"Font"_s, ambientFont()));
    setPicture(bag.readPicture(u"Picture"_s));
    m_ifDraw = bag.readBool(u"IfDraw"_s, false);
    SetButton(true);
    m_hovForceColor = bag.readColor(u"HovForceColor"_s, {0});
}

void FButton::WriteProperties(PropertyBag& bag) const
{
    bag.writeString(u"Caption"_s, m_caption, u"Flash Button"_s);
    bag.writeColor(u"BackColor"_s, BackColor(), buttonFace);
    bag.writeColor(u"ForeColor"_s, ForeColor(), buttonText);
    bag.writeColor(u"MouseDownColor"_s, m_mouseDownColor, buttonText);
    bag.writeColor(u"MouseOnColor"_s, m_mouseOnColor, buttonText);
    bag.writeColor(u"StyleColor"_s, m_styleColor, buttonText);
    bag.writeColor(u"Style3dColor1"_s, m_style3DColor1, buttonText);
    bag.writeColor(u"Style3dColor2"_s, m_style3DColor2, buttonText);
    bag.writePicture(u"Picture"_s, m_picture);
    bag.writeInt32(u"style"_s, m_style, 0);
    bag.writeBool(u"Enabled"_s, Enabled(), true);
    bag.writeFont(u"Font"_s, Font(), ambientFont());
    bag.writeBool(u"IfDraw"_s, m_ifDraw, false);
    bag.writeColor(u"HovForceColor"_s, m_hovForceColor, {0});
}

void FButton::changed(const QString& property)
{
    SetButton(true);
    Q_EMIT propertyChanged(property);
}

template<typename T>
void FButton::change(T& field, const T& value, const QString& property)
{
    field = value;
    changed(property);
}

void FButton::setIfDraw(bool New_IfDraw) { change(m_ifDraw, New_IfDraw, u"IfDraw"_s); }

void FButton::setBackColor(Color New_BackColor)
{
    drawingSurface().setBackColor(New_BackColor);
    change(m_curBackColor, New_BackColor, u"BackColor"_s);
}

void FButton::setForeColor(Color New_ForeColor)
{
    drawingSurface().setForeColor(New_ForeColor);
    changed(u"ForeColor"_s);
}

void FButton::setMouseOnColor(Color New_MouseOnColor)
{
    change(m_mouseOnColor, New_MouseOnColor, u"MouseOnColor"_s);
}

void FButton::setMouseDownColor(Color New_MouseDownColor)
{
    change(m_mouseDownColor, New_MouseDownColor, u"MouseDownColor"_s);
}

void FButton::setStyle3DColor1(Color New_Style3DColor1)
{
    change(m_style3DColor1, New_Style3DColor1, u"Style3DColor1"_s);
}

void FButton::setStyle3DColor2(Color New_Style3DColor2)
{
    change(m_style3DColor2, New_Style3DColor2, u"Style3DColor2"_s);
}

void FButton::setStyleColor(Color New_StyleColor) { change(m_styleColor, New_StyleColor, u"StyleColor"_s); }

void FButton::setPicture(const vistrel::Picture& New_Picture)
{
    change(m_picture, New_Picture, u"Picture"_s);
}

void FButton::setStyle(qint32 New_style) { change(m_style, New_style, u"style"_s); }

void FButton::setEnabled(bool New_Enabled)
{
    setSurfaceEnabled(New_Enabled);
    changed(u"Enabled"_s);
}

void FButton::setCaption(const QString& New_Caption)
{
    m_caption = New_Caption;
    Q_EMIT propertyChanged(u"Caption"_s);
}

void FButton::setFont(const vistrel::Font& New_Font)
{
    drawingSurface().setFont(New_Font);
    changed(u"Font"_s);
}

void FButton::setHovForceColor(Color New_HovForceColor)
{
    change(m_hovForceColor, New_HovForceColor, u"HovForceColor"_s);
}

void FButton::Undown()
{
    m_curBackColor = BackColor();
    drawingSurface().drawRectangle(0, 0, Width() - edgeInset, Height() - edgeInset, BackColor());
    SetButton(true);
}

void FButton::SetButton(const bool& normal)
{
    setCaption(m_caption);
    if (m_curBackColor.value == 0) m_curBackColor = BackColor();
    Surface& canvas = drawingSurface();
    canvas.fillRectangle(0, 0, Width(), Height(), m_curBackColor);
    if (m_ifDraw) canvas.drawRectangle(0, 0, Width() - edgeInset, Height() - edgeInset, m_styleColor);
    const Color restColor = ForeColor();
    if (!normal) canvas.setForeColor(m_hovForceColor);
    paintPictureAndCaption();
    canvas.setForeColor(restColor);
}

void FButton::paintPictureAndCaption()
{
    Surface& canvas = drawingSurface();
    const QSizeF picture = QSizeF(m_picture.size()) * twipsPerPixel;
    const ButtonSizes sizes = {Width(),
                               Height(),
                               picture.width(),
                               picture.height(),
                               canvas.textWidth(m_caption),
                               canvas.textHeight(m_caption)};
    const auto drawPicture = [&](QPointF at) {
        canvas.drawPicture(m_picture, static_cast<float>(at.x()), static_cast<float>(at.y()),
                           static_cast<float>(picture.width()), static_cast<float>(picture.height()));
    };
    if (m_caption.isEmpty()) {
        drawPicture(pictureAlone(sizes));
        return;
    }
    const ButtonLayout layout = m_picture.isNull() ? captionAlone(sizes) : arrangeButton(m_style, sizes);
    drawPicture(layout.picture);
    canvas.setCurrentX(static_cast<float>(layout.caption.x()));
    canvas.setCurrentY(static_cast<float>(layout.caption.y()));
    const QPoint at(roundToInt32(canvas.CurrentX()), roundToInt32(canvas.CurrentY()));
    canvas.print(m_caption);
    if (Enabled()) return;

    canvas.setCurrentX(static_cast<float>(at.x() + layout.emboss));
    canvas.setCurrentY(static_cast<float>(at.y() + layout.emboss));
    const Color foreColor = ForeColor();
    canvas.setForeColor(white);
    canvas.print(m_caption);
    canvas.setForeColor(foreColor);
}

void FButton::paintFrame(Color leftTop, Color rightBottom)
{
    Surface& canvas = drawingSurface();
    const float right = Width() - edgeInset, bottom = Height() - edgeInset;
    canvas.drawLine(0, 0, 0, Height(), leftTop);
    canvas.drawLine(0, 0, Width(), 0, leftTop);
    canvas.drawLine(right, 0, right, Height(), rightBottom);
    canvas.drawLine(0, bottom, Width(), bottom, rightBottom);
}

void FButton::surfaceMouseMove(qint16 Button, qint16 Shift, float X, float Y)
{
    Q_EMIT MouseMove(Button, Shift, X, Y);
    const bool isInside = X >= 0 && X <= Width() && Y >= 0 && Y <= Height();
    if (!isInside) {
        m_hoverOn = false;
        Undown();
    } else if (!m_hoverOn) {
        m_hoverOn = true;
        m_curBackColor = m_mouseOnColor;
        SetButton(false);
        paintFrame(m_style3DColor1, m_style3DColor2);
    }
}

void FButton::surfaceMouseLeave(qint16 Shift, float X, float Y)
{
    if (m_hoverOn) surfaceMouseMove(0, Shift, X, Y);
}

void FButton::surfaceMouseDown(qint16 Button, qint16 Shift, float X, float Y)
{
    Q_EMIT MouseDown(Button, Shift, X, Y);
    m_curBackColor = m_mouseDownColor;
    SetButton(true);
    paintFrame(m_style3DColor2, m_style3DColor1);
}

void FButton::surfaceMouseUp(qint16 Button, qint16 Shift, float X, float Y)
{
    Q_EMIT MouseUp(Button, Shift, X, Y);
    m_hoverOn = false;
    Undown();
}

void FButton::surfaceClick() { Q_EMIT Click(); }

void FButton::surfaceResize() { SetButton(true); }

AccessibleFacts FButton::accessibleFacts() const
{
    AccessibleFacts facts;
    facts.role = QAccessible::Button;
    facts.name = m_caption.trimmed();
    facts.canBePressed = true;
    return facts;
}

void FButton::accessiblePress() { Q_EMIT Click(); }

} // namespace vistrel
