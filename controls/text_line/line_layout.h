#pragma once

#include <QRectF>

#include <array>

namespace vistrel
{

/// One of the text line's one-pixel lines, its second point excluded. Twips.
struct FrameLine {
    float X1 = 0;
    float Y1 = 0;
    float X2 = 0;
    float Y2 = 0;
};

/// Where everything in a text line goes. Twips.
struct TextLineLayout {
    float width = 0;   ///< Of the control: at least five pixels.
    float height = 0;  ///< Of the control: at least fifteen pixels.
    qint16 IsTall = 0; ///< 1 when the control is higher than that, else 0.
    QRectF field;      ///< The edit field.
    /// Left, top, right and bottom edge of the frame, and the line along the field's last row.
    std::array<FrameLine, 5> LLine;
};

/// Lays out a control that was given width x height; TppX and TppY are the screen's twips per pixel. A
/// control of the standard height has a margin of one pixel around the field, a tall one has two above it.
TextLineLayout layoutTextLine(float width, float height, float TppX, float TppY);

} // namespace vistrel
