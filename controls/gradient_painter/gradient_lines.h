#pragma once

#include "platform/drawing/color.h"

#include <QPoint>

#include <vector>

namespace vistrel
{

/// A point with 32-bit float coordinates; every result is rounded to them.
struct FloatPoint {
    float x = 0;
    float y = 0;
};

/// Turns point about centre, counter-clockwise as seen on the screen for positive degrees.
void RotatePoint(const FloatPoint& centre, FloatPoint& point, float degrees);

/// dividend / divisor; 0 when divisor is 0.
double SafeDivide(double dividend, double divisor);

/// The sweep of parallel one-pixel lines, one pixel apart, that covers a target of width x height pixels when
/// the gradient runs along angle (degrees, 0 left to right, 90 bottom to top). Entries 2k and 2k+1 are the
/// start and the end of line k, from the side where the gradient starts to beyond the opposite one; a single
/// entry may be left over at the end. The first line takes rounded coordinates (ties to even), the others are
/// whole steps from it. RuntimeError::Number::Overflow when a coordinate does not fit, or angle is no number.
std::vector<QPoint> sweepEntries(qint32 width, qint32 height, float angle);

/// Fills colors with steps colours (at least 2) from start to end and returns their count. The first and last
/// are start and end themselves; those between are rounded (ties to even) and advance by a steps-th, not a
/// (steps - 1)-th, of the difference, so they stop short of end. The top byte of start and end does not count
/// for them.
qint32 blendColors(Color start, Color end, qint32 steps, std::vector<Color>& colors);

} // namespace vistrel
