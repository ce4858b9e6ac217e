#pragma once

#include "platform/drawing/color.h"
#include "platform/drawing/surface.h"

#include <functional>
#include <vector>

namespace vistrel
{

/// Fills a drawing surface with a linear gradient of two colours at any angle, line by line, in device
/// pixels. Keeps nothing of the surface; one instance may paint many.
class clsGradient
{
public:
    /// Shows a box with the exclamation icon and an OK button; an empty title stands for the program's own.
    using ErrorBox = std::function<void(const QString& text, const QString& title)>;

    /// Starts with a light blue, a dark blue and 315 degrees (left-top to right-bottom).
    explicit clsGradient(ErrorBox errorBox);

    /// Paints the whole surface; true when at least one line was drawn. A surface of one pixel or less in
    /// either direction stays as it is. The surface's owner shows the result. An error (no target, a figure
    /// that overflows) is reported in the error box and gives false.
    bool Draw(Surface* target);

    /// Fills Colors with Steps colours from Color1 to Color2, see blendColors(); returns their count.
    qint32 BlendColors(Color Color1, Color Color2, qint32 Steps, std::vector<Color>& Colors) const;

    /// Where the gradient starts. A system colour is stored as the plain colour that it has now.
    [[nodiscard]] Color Color1() const { return m_color1; }
    void setColor1(Color New_Color1);
    /// Where it ends; the same rule.
    [[nodiscard]] Color Color2() const { return m_color2; }
    void setColor2(Color New_Color2);
    /// Direction in degrees: 0 left to right, 90 bottom to top. Stored in [0, 360): -90 becomes 270.
    [[nodiscard]] float Angle() const { return m_angle; }
    void setAngle(float New_Angle);

private:
    qint32 DrawGradientLines(QImage& target);

    ErrorBox m_errorBox;
    Color m_color1{0xFFFFD0};
    Color m_color2{0x400000};
    float m_angle = 315;
};

} // namespace vistrel
