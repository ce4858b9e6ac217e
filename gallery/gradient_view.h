#pragma once

#include "platform/widgets/control_widget.h"

namespace vistrel
{

/// A surface filled by the gradient painter, so that it can be shown like a control.
class GradientView : public ControlWidget
{
    Q_OBJECT
    Q_PROPERTY(vistrel::Color Color1 MEMBER m_color1)
    Q_PROPERTY(vistrel::Color Color2 MEMBER m_color2)
    Q_PROPERTY(qint32 Angle MEMBER m_angle)

public:
    explicit GradientView(QWidget* parent);

    void InitProperties() override {}
    void ReadProperties(const PropertyBag&) override {}
    void WriteProperties(PropertyBag&) const override {}

protected:
    void surfaceResize() override;

private:
    Color m_color1;
    Color m_color2;
    qint32 m_angle = 0;
};

/// Fills target; true unless the painter reported an error, which goes to standard error.
bool paintGradient(Surface& target, Color color1, Color color2, float angle);

} // namespace vistrel
