#pragma once

#include <QtGlobal>

namespace vistrel
{

/// Nearest integer, ties to even (2.5 gives 2, 3.5 gives 4). The rounding of every conversion that the
/// controls make from a fraction to a whole number; twips to pixels is the one exception (see
/// twipsToPixels()). Both throw RuntimeError::Number::Overflow when the result does not fit, or value is no
/// number.
qint32 roundToInt32(double value);
qint16 roundToInt16(double value);

/// Twips (1440 per inch) in one logical pixel, in both directions, on every screen.
inline constexpr int twipsPerPixel = 15;

/// Twips to whole logical pixels: nearest, ties upwards (towards +infinity), also below zero: 7.5 gives 1,
/// -7.5 gives 0. Moving a figure by whole pixels therefore never changes its shape.
int twipsToPixels(double twips);

} // namespace vistrel
