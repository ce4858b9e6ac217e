#pragma once

#include "platform/widgets/control_widget.h"

namespace vistrel
{

/// A rectangle with a one-pixel border. Takes no input.
class Shape : public ControlWidget
{
    Q_OBJECT

public:
    explicit Shape(QWidget* parent = nullptr);

    /// Border in window text, filled with window background.
    void InitProperties() override;
    void ReadProperties(const PropertyBag& bag) override;
    void WriteProperties(PropertyBag& bag) const override;

protected:
    void surfaceResize() override;

private:
    Color m_borderColor;
};

} // namespace vistrel
