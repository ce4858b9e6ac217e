#pragma once

#include <QtGlobal>

#include <cmath>
#include <limits>
#include <optional>

namespace vistrel
{

/// number rounded to the nearest integer, halves to the even neighbour (2.5 gives 2, 3.5 gives 4); none when
/// it does not fit.
template<typename Integer>
[[nodiscard]] std::optional<Integer> roundedTo(double number)
{
    static_assert(sizeof(Integer) <= sizeof(qint32), "double holds every value of the range");
    const double rounded = std::nearbyint(number);
    const bool fits =
        rounded >= std::numeric_limits<Integer>::min() && rounded <= std::numeric_limits<Integer>::max();
    return fits ? std::optional(static_cast<Integer>(rounded)) : std::nullopt;
}

} // namespace vistrel
