#pragma once

#include "controls/value_tip/tip_geometry.h"

#include <QSizeF>

#include <optional>

namespace vistrel
{

/// The whole numbers that a slider offers, both ends included.
struct SliderRange {
    qint16 Min = 0;
    qint16 Max = 0;

    [[nodiscard]] int span() const { return Max - Min; }
};

/// What lies across and along a slider, in logical pixels. The track is the way that the thumb can go: the
/// surface's length less the thumb's, below zero for a slider shorter than its thumb.
struct SliderParts {
    qint32 orientation = verticalOrientation;
    QSizeF surface;
    QSize thumb;               ///< Empty for a thumb without picture.
    std::optional<QSize> rail; ///< The rail picture's size, where one is set and used.

    [[nodiscard]] float track() const;
    /// Whether orientation is one of the two.
    [[nodiscard]] bool isOriented() const;
};

// The functions below that need one of the two orientations say what else they give.

/// The outer size in twips of a slider that has `current` now: as thick as the thicker of thumb and rail
/// picture; as long as the rail picture and two pixels at each end, or, for a drawn rail, as it is, but not
/// 0. Else `current`.
QSizeF sliderSizeTwips(const SliderParts& parts, QSizeF current);

/// The thumb's distance from the edge across the rail: 0, or centred on a rail picture that is thicker.
float thumbAcross(const SliderParts& parts);

/// The thumb's distance from the left or top edge that stands for value: Min lies left, or at the bottom.
/// Nothing for an empty range; else nothing, too.
std::optional<float> thumbAlong(const SliderParts& parts, const SliderRange& range, qint32 value);

/// The value that is nearest to such a distance, ties to even; the inverse of thumbAlong() for every value of
/// range. 0 where there is no track; else 0, too.
qint16 valueAt(const SliderParts& parts, const SliderRange& range, float distance);

/// The drawn rail: four pixels thick, in the middle of the thumb, two pixels beyond its middle at either end
/// of the track; fractions rounded, ties to even. Else empty.
QRect railRect(const SliderParts& parts);

/// The DrawEdge borders of a RailStyle, 0 for the styles that draw none.
quint32 railBorders(qint32 RailStyle);

/// The RailStyle of a rail picture.
inline constexpr qint32 pictureRailStyle = 99;

} // namespace vistrel
