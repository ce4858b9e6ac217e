#include "gallery/gradient_view.h"

#include "controls/gradient_painter/cls_gradient.h"

#include <QDebug>

namespace vistrel
{

GradientView::GradientView(QWidget* parent) : ControlWidget(ScaleMode::Pixels, parent) {}

void GradientView::surfaceResize()
{
    paintGradient(drawingSurface(), m_color1, m_color2, static_cast<float>(m_angle));
}

bool paintGradient(Surface& target, Color color1, Color color2, float angle)
{
    clsGradient painter([](const QString& text, const QString& title) { qCritical() << title << text; });
    painter.setColor1(color1);
    painter.setColor2(color2);
    painter.setAngle(angle);
    return painter.Draw(&target);
}

} // namespace vistrel
