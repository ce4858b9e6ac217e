#include "platform/forms/frame.h"

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr Color buttonFace = Color::system(SystemColor::ButtonFace);
constexpr Color buttonText = Color::system(SystemColor::ButtonText);
constexpr Color buttonShadow = Color::system(SystemColor::ButtonShadow);
constexpr float captionInset = 10; // Pixels from the frame's left edge to the caption.
constexpr float captionMargin = 4; // Pixels between caption and line.

} // namespace

Frame::Frame(QWidget* parent) : ControlWidget(ScaleMode::Pixels, parent) {}

void Frame::InitProperties() { ReadProperties({}); }

void Frame::ReadProperties(const PropertyBag& bag)
{
    m_caption = bag.readString(u"Caption"_s, {});
    m_borderColor = bag.readColor(u"BorderColor"_s, buttonShadow);
    drawingSurface().setBackColor(bag.readColor(u"BackColor"_s, buttonFace));
    drawingSurface().setForeColor(bag.readColor(u"ForeColor"_s, buttonText));
    drawingSurface().setFont(bag.readFont(u"Font"_s, ambientFont()));
    surfaceResize();
}

void Frame::WriteProperties(PropertyBag& bag) const
{
    bag.writeString(u"Caption"_s, m_caption, {});
    bag.writeColor(u"BorderColor"_s, m_borderColor, buttonShadow);
    bag.writeColor(u"BackColor"_s, surface().backColor(), buttonFace);
    bag.writeColor(u"ForeColor"_s, surface().foreColor(), buttonText);
    bag.writeFont(u"Font"_s, surface().font(), ambientFont());
}

AccessibleFacts Frame::accessibleFacts() const
{
    AccessibleFacts facts;
    facts.role = QAccessible::Grouping;
    facts.name = m_caption;
    return facts;
}

void Frame::surfaceResize()
{
    Surface& canvas = drawingSurface();
    canvas.clear();
    const float right = canvas.ScaleWidth() - 1, bottom = canvas.ScaleHeight() - 1;
    const float textHeight = canvas.textHeight(m_caption);
    canvas.drawRectangle(0, textHeight / 2, right, bottom, m_borderColor);
    if (m_caption.isEmpty()) return;
    const float captionRight = captionInset + canvas.textWidth(m_caption);
    canvas.fillRectangle(captionInset - captionMargin, 0, captionRight + captionMargin, textHeight,
                         canvas.backColor());
    canvas.setCurrentX(captionInset);
    canvas.setCurrentY(0);
    canvas.print(m_caption);
}

} // namespace vistrel
