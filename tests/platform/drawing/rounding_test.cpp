#include "platform/drawing/rounding.h"

#include "platform/runtime_error.h"

#include <gtest/gtest.h>

#include <utility>

namespace vistrel
{

TEST(Rounding, numbersThatDoNotFitOverflow)
{
    EXPECT_EQ(roundToInt16(-32768.5), -32768);
    EXPECT_THROW(roundToInt16(32767.5), RuntimeError);
    EXPECT_THROW(roundToInt32(2147483648.0), RuntimeError);
}

TEST(Rounding, twipsTakeTheNearestPixelAndTiesUpwards)
{
    const std::pair<double, int> rows[] = {{7.49, 0}, {7.5, 1},    {22.5, 2},
                                           {-7.5, 0}, {-7.51, -1}, {1490, 99}};
    for (const auto& [twips, pixels] : rows)
        EXPECT_EQ(twipsToPixels(twips), pixels) << twips;
}

} // namespace vistrel
