#pragma once

#include <QPoint>
#include <QRect>
#include <QRectF>
#include <QSize>

namespace vistrel
{

/// The two orientations of a slider, as its property's values; a slider may hold any other number, too.
inline constexpr qint32 horizontalOrientation = 0;
inline constexpr qint32 verticalOrientation = 1;

/// The thumb that a tip belongs to. Logical pixels.
struct TipAnchor {
    QPoint sliderAt; ///< The slider's left top corner on the screen.
    QRectF thumb;    ///< Within the slider.
    qint32 orientation = horizontalOrientation;
};

/// Where the tip window goes on the screen when its label has that size: above the thumb of a horizontal
/// slider, left of a vertical one's, never mind the screen's edges; at the screen's corner for any other
/// orientation. Fractions are rounded, ties to even.
QRect tipGeometry(const TipAnchor& anchor, QSize label);

} // namespace vistrel
