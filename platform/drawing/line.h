#pragma once

#include <QPoint>
#include <QRect>

#include <algorithm>
#include <cstdlib>

namespace vistrel
{

/// Visits the pixels of the one-pixel line from `from` to `to`, in that order, the end point excluded, as far
/// as they lie in clip (the cost is that of the clipped part). One pixel per step along the longer axis; on
/// the shorter axis the nearest pixel, ties towards `to`. Moving both points moves exactly the same pixels.
/// Coordinates stay below 2^30.
template<typename Visit>
void forEachLinePixel(QPoint from, QPoint to, const QRect& clip, Visit visit)
{
    const bool steep = std::abs(to.y() - from.y()) > std::abs(to.x() - from.x());
    const auto turned = [steep](QPoint point) { return steep ? point.transposed() : point; };
    const QPoint start = turned(from);
    const QPoint span = turned(to) - start;
    const qint64 steps = std::abs(span.x()), rise = std::abs(span.y());
    const int forward = span.x() < 0 ? -1 : 1, aside = span.y() < 0 ? -1 : 1;

    // The part of the longer axis inside clip, as a range of steps.
    const int low = steep ? clip.top() : clip.left(), high = steep ? clip.bottom() : clip.right();
    const qint64 first = std::max<qint64>(0, forward > 0 ? low - start.x() : start.x() - high);
    const qint64 last = std::min<qint64>(steps - 1, forward > 0 ? high - start.x() : start.x() - low);
    if (first > last) return;

    const qint64 moved = 2 * rise * first + steps;
    qint64 remainder = moved % (2 * steps);
    int across = start.y() + aside * static_cast<int>(moved / (2 * steps));
    int along = start.x() + forward * static_cast<int>(first);
    const int bottom = steep ? clip.left() : clip.top(), top = steep ? clip.right() : clip.bottom();
    for (qint64 step = first; step <= last; ++step, along += forward) {
        if (across >= bottom && across <= top) visit(turned({along, across}));
        remainder += 2 * rise;
        if (remainder >= 2 * steps) {
            remainder -= 2 * steps;
            across += aside;
        }
    }
}

} // namespace vistrel
