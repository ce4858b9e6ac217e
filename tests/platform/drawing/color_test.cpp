#include "platform/drawing/color.h"
#include "tests/support/printers.h"

#include <gtest/gtest.h>

namespace vistrel
{

TEST(Color, keepsRedInTheLowByteAndOnlyTheKnownIndicesAreSystemColours)
{
    EXPECT_EQ(Color::rgb(0x12, 0x34, 0x56).value, 0x563412U);
    EXPECT_EQ(Color{0x80000018}.resolved(), Color::rgb(255, 255, 225));
    EXPECT_FALSE(Color{0x18}.isSystem());
    EXPECT_FALSE(Color{0x80000019}.isSystem());
    EXPECT_EQ(Color{0x80000019}.resolved().value, 0x80000019U);
    EXPECT_EQ(Color{0x80000019}.toQColor(), QColor(0x19, 0, 0));
}

} // namespace vistrel
