#include "platform/drawing/rounding.h"

#include "platform/runtime_error.h"

#include <gtest/gtest.h>

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
    EXPECT_EQ(twipsToPixels(7.49), 0);
    EXPECT_EQ(twipsToPixels(7.5), 1);
    EXPECT_EQ(twipsToPixels(22.5), 2);
    EXPECT_EQ(twipsToPixels(-7.5), 0);
    EXPECT_EQ(twipsToPixels(-7.51), -1);
    EXPECT_EQ(twipsToPixels(1500 - 10), 99);
}

} // namespace vistrel
