#include "controls/value_tip/tip_geometry.h"

#include "platform/drawing/rounding.h"

namespace vistrel
{

namespace
{

QPointF besideThumb(const TipAnchor& anchor, QSize label)
{
    const QRectF thumb = anchor.thumb.translated(anchor.sliderAt);
    switch (anchor.orientation) {
    case horizontalOrientation:
        return {thumb.x() + (thumb.width() - label.width() - 4) * 0.5, thumb.y() - label.height() - 5};
    case verticalOrientation:
        return {thumb.x() - label.width() - 6, thumb.y() + (thumb.height() - label.height() - 4) * 0.5};
    default: return {};
    }
}

} // namespace

QRect tipGeometry(const TipAnchor& anchor, QSize label)
{
    const QPointF at = besideThumb(anchor, label);
    return {QPoint(roundToInt32(at.x()), roundToInt32(at.y())), label + QSize(4, 3)};
}

} // namespace vistrel
