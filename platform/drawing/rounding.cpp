#include "platform/drawing/rounding.h"

#include "platform/runtime_error.h"

#include <cmath>
#include <limits>

namespace vistrel
{

namespace
{

template<typename Integer>
Integer roundTo(double value)
{
    const double rounded = std::nearbyint(value);
    using Limits = std::numeric_limits<Integer>;
    if (!(rounded >= Limits::min() && rounded <= Limits::max()))
        throw RuntimeError(RuntimeError::Number::Overflow);
    return static_cast<Integer>(rounded);
}

} // namespace

qint32 roundToInt32(double value) { return roundTo<qint32>(value); }

qint16 roundToInt16(double value) { return roundTo<qint16>(value); }

int twipsToPixels(double twips) { return static_cast<int>(std::floor(twips / twipsPerPixel + 0.5)); }

} // namespace vistrel
