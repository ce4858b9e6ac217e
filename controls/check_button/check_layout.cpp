#include "controls/check_button/check_layout.h"

namespace vistrel
{

namespace
{

constexpr double boxSide = 240;
constexpr double boxBelowMiddle = 40;
constexpr double captionAboveBox = 10;

// The right and bottom edges belong to what lies beyond them.
bool holds(const QRectF& part, QPointF point)
{
    return point.x() >= part.left() && point.x() < part.right() && point.y() >= part.top() &&
           point.y() < part.bottom();
}

} // namespace

QRectF CheckLayout::partAt(QPointF point) const
{
    if (holds(lbl, point)) return lbl;
    return holds(p, point) ? p : QRectF();
}

CheckLayout layoutCheckButton(float height, QSizeF captionSize)
{
    const double boxTop = (static_cast<double>(height) - boxSide) / 2 + boxBelowMiddle;
    return {{0, boxTop, boxSide, boxSide}, {{boxSide, boxTop - captionAboveBox}, captionSize}};
}

} // namespace vistrel
