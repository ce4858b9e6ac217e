#include "controls/text_line/line_layout.h"
#include "tests/support/printers.h"

#include <gtest/gtest.h>

namespace vistrel
{

namespace
{

TextLineLayout layout(float widthPx, float heightPx)
{
    return layoutTextLine(widthPx * 15, heightPx * 15, 15, 15);
}

void expectLine(const FrameLine& line, float x1, float y1, float x2, float y2)
{
    EXPECT_EQ(line.X1, x1 * 15);
    EXPECT_EQ(line.Y1, y1 * 15);
    EXPECT_EQ(line.X2, x2 * 15);
    EXPECT_EQ(line.Y2, y2 * 15);
}

} // namespace

TEST(TextLineLayout, lowControlsBecomeFifteenPixelsHigh)
{
    for (const float heightPx : {0, 10, 15}) {
        const TextLineLayout low = layout(100, heightPx);
        EXPECT_EQ(low.height, 15 * 15);
        EXPECT_EQ(low.IsTall, 0);
        EXPECT_EQ(low.field, QRectF(15, 15, 98 * 15, 13 * 15));
    }
}

TEST(TextLineLayout, tallControlsHaveAnotherPixelAboveTheField)
{
    const TextLineLayout tall = layout(100, 30);
    EXPECT_EQ(tall.height, 30 * 15);
    EXPECT_EQ(tall.IsTall, 1);
    EXPECT_EQ(tall.field, QRectF(15, 30, 98 * 15, 27 * 15));
    EXPECT_EQ(layout(100, 15.1F).IsTall, 1);
}

TEST(TextLineLayout, narrowControlsBecomeFivePixelsWide)
{
    EXPECT_EQ(layout(3, 20).width, 5 * 15);
    EXPECT_EQ(layout(3, 20).field.width(), 3 * 15);
    EXPECT_EQ(layoutTextLine(1, 300, 12, 15).width, 5 * 15); // The vertical ratio counts.
}

TEST(TextLineLayout, theLinesRunAlongTheEdgesAndTheFieldsLastRow)
{
    const TextLineLayout tall = layout(100, 30);
    expectLine(tall.LLine[0], 0, 0, 0, 30);
    expectLine(tall.LLine[1], 0, 0, 99, 0);
    expectLine(tall.LLine[2], 99, 30, 99, -1);
    expectLine(tall.LLine[3], 1, 29, 99, 29);
    expectLine(tall.LLine[4], 1, 28, 99, 28);
}

} // namespace vistrel
