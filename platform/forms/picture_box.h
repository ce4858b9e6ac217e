#pragma once

#include "platform/widgets/control_widget.h"

namespace vistrel
{

/// A surface to draw on, with an optional picture at its top left; may hold other controls. Positions are
/// pixels. What was drawn stays until the surface is cleared or overdrawn.
class PictureBox : public ControlWidget
{
    Q_OBJECT

public:
    explicit PictureBox(QWidget* parent = nullptr);

    /// Opaque, in button face, the fore colour button text, without a picture.
    void InitProperties() override;
    /// "BackStyle" 0 lets shine through what lies behind; then only the picture shows. 1 is opaque.
    void ReadProperties(const PropertyBag& bag) override;
    void WriteProperties(PropertyBag& bag) const override;

    /// Removes the picture and all that was drawn.
    void clearPicture();
    /// What the form draws on; the change shows with the next repaint, which this asks for.
    Surface& canvas() { return drawingSurface(); }

    [[nodiscard]] AccessibleFacts accessibleFacts() const override;
    /// Raises Click.
    void accessiblePress() override;

Q_SIGNALS:
    void Click();
    void MouseDown(qint16& Button, qint16& Shift, float& X, float& Y);
    /// The surface has a new size or device pixel ratio and shows the picture alone: draw again.
    void Repaint();

protected:
    void surfaceMouseDown(qint16 Button, qint16 Shift, float X, float Y) override;
    void surfaceClick() override;
    void surfaceResize() override;
    void paintEvent(QPaintEvent* event) override;

private:
    void showPicture();

    Picture m_picture;
    qint32 m_backStyle = 1;
};

} // namespace vistrel
