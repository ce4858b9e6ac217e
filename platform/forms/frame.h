#pragma once

#include "platform/widgets/control_widget.h"

namespace vistrel
{

/// A one-pixel frame with a caption in its upper edge, around other controls.
class Frame : public ControlWidget
{
    Q_OBJECT

public:
    explicit Frame(QWidget* parent = nullptr);

    /// Without a caption, in button face, the caption and the frame in button text and button shadow.
    void InitProperties() override;
    void ReadProperties(const PropertyBag& bag) override;
    void WriteProperties(PropertyBag& bag) const override;

    [[nodiscard]] AccessibleFacts accessibleFacts() const override;

protected:
    void surfaceResize() override;

private:
    QString m_caption;
    Color m_borderColor;
};

} // namespace vistrel
