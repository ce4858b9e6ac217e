#include "controls/slider/slider_geometry.h"

#include "platform/drawing/rounding.h"
#include "platform/drawing/surface.h"

#include <algorithm>

namespace vistrel
{

namespace
{

constexpr int railThickness = 4;
constexpr int railEndsTwips = 60; // Two pixels at each end of a rail picture.

// Of a strip in the middle of a thumb of that thickness.
int railStart(int thumb) { return roundToInt32((thumb - railThickness) * 0.5); }

int railLength(double surface, int start, int thumb)
{
    return roundToInt32(surface + start - thumb + railThickness) - start;
}

double grown(double current, int least) { return current == 0 ? least : current; }

} // namespace

float SliderParts::track() const
{
    return static_cast<float>(orientation == horizontalOrientation ? surface.width() - thumb.width()
                                                                   : surface.height() - thumb.height());
}

bool SliderParts::isOriented() const
{
    return orientation == horizontalOrientation || orientation == verticalOrientation;
}

QSizeF sliderSizeTwips(const SliderParts& parts, QSizeF current)
{
    const QSize thumb = parts.thumb * twipsPerPixel;
    const QSize rail = parts.rail.value_or(QSize()) * twipsPerPixel;
    switch (parts.orientation) {
    case horizontalOrientation:
        if (!parts.rail) return {grown(current.width(), thumb.width()), static_cast<double>(thumb.height())};
        return QSizeF(rail.width() + railEndsTwips, std::max(thumb.height(), rail.height()));
    case verticalOrientation:
        if (!parts.rail) return {static_cast<double>(thumb.width()), grown(current.height(), thumb.height())};
        return QSizeF(std::max(thumb.width(), rail.width()), rail.height() + railEndsTwips);
    default: return current;
    }
}

float thumbAcross(const SliderParts& parts)
{
    if (!parts.rail) return 0;
    const int spare = parts.orientation == horizontalOrientation ? parts.rail->height() - parts.thumb.height()
                                                                 : parts.rail->width() - parts.thumb.width();
    return std::max(0.0F, static_cast<float>(spare * 0.5));
}

std::optional<float> thumbAlong(const SliderParts& parts, const SliderRange& range, qint32 value)
{
    if (range.span() == 0) return std::nullopt;
    const double track = parts.track();
    const double fromMin = track * (value - range.Min) / range.span();
    switch (parts.orientation) {
    case horizontalOrientation: return static_cast<float>(fromMin);
    case verticalOrientation: return static_cast<float>(track - fromMin);
    default: return std::nullopt;
    }
}

qint16 valueAt(const SliderParts& parts, const SliderRange& range, float distance)
{
    const double track = parts.track();
    if (track == 0) return 0;
    switch (parts.orientation) {
    case horizontalOrientation: return roundToInt16(range.Min + distance / track * range.span());
    case verticalOrientation: return roundToInt16(range.Min + (track - distance) / track * range.span());
    default: return 0;
    }
}

QRect railRect(const SliderParts& parts)
{
    const QPoint start(railStart(parts.thumb.width()), railStart(parts.thumb.height()));
    switch (parts.orientation) {
    case horizontalOrientation:
        return QRect(start,
                     QSize(railLength(parts.surface.width(), start.x(), parts.thumb.width()), railThickness));
    case verticalOrientation:
        return QRect(
            start, QSize(railThickness, railLength(parts.surface.height(), start.y(), parts.thumb.height())));
    default: return {};
    }
}

quint32 railBorders(qint32 RailStyle)
{
    switch (RailStyle) {
    case 0: return EDGE_SUNKEN;
    case 1: return EDGE_RAISED;
    case 2: return BDR_SUNKENOUTER;
    case 3: return BDR_RAISEDINNER;
    default: return 0;
    }
}

} // namespace vistrel
