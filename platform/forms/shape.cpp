#include "platform/forms/shape.h"

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr Color windowText = Color::system(SystemColor::WindowText);
constexpr Color windowBackground = Color::system(SystemColor::Window);

} // namespace

Shape::Shape(QWidget* parent) : ControlWidget(ScaleMode::Pixels, parent)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void Shape::InitProperties() { ReadProperties({}); }

void Shape::ReadProperties(const PropertyBag& bag)
{
    m_borderColor = bag.readColor(u"BorderColor"_s, windowText);
    drawingSurface().setBackColor(bag.readColor(u"FillColor"_s, windowBackground));
    surfaceResize();
}

void Shape::WriteProperties(PropertyBag& bag) const
{
    bag.writeColor(u"BorderColor"_s, m_borderColor, windowText);
    bag.writeColor(u"FillColor"_s, surface().backColor(), windowBackground);
}

void Shape::surfaceResize()
{
    Surface& canvas = drawingSurface();
    canvas.clear();
    canvas.drawRectangle(0, 0, canvas.ScaleWidth() - 1, canvas.ScaleHeight() - 1, m_borderColor);
}

} // namespace vistrel
