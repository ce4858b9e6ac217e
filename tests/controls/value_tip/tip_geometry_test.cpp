#include "controls/value_tip/tip_geometry.h"
#include "tests/support/printers.h"

#include <gtest/gtest.h>

namespace vistrel
{

TEST(TipGeometry, aHorizontalThumbHasItsTipAbove)
{
    const TipAnchor anchor{{300, 200}, {140, 0, 8, 16}, horizontalOrientation};
    EXPECT_EQ(tipGeometry(anchor, {18, 13}), QRect(433, 182, 22, 16));
    // 430 + 8.75 - 9.5 - 2: the position along the rail may be a fraction.
    const TipAnchor fraction{{290, 200}, {140.75, 3, 8, 16}, horizontalOrientation};
    EXPECT_EQ(tipGeometry(fraction, {19, 13}).topLeft(), QPoint(423, 185));
}

TEST(TipGeometry, aVerticalThumbHasItsTipOnTheLeft)
{
    const TipAnchor anchor{{300, 200}, {2, 40, 16, 16}, verticalOrientation};
    EXPECT_EQ(tipGeometry(anchor, {18, 14}), QRect(278, 239, 22, 17));
}

TEST(TipGeometry, tiesGoToTheEvenPixel)
{
    // The middle of 8 - 4 - w lies on a half for an odd w.
    for (const auto& [left, expected] : {std::pair(100, 98), std::pair(101, 100)}) {
        const TipAnchor anchor{{left, 50}, {0, 0, 8, 16}, horizontalOrientation};
        EXPECT_EQ(tipGeometry(anchor, {7, 13}).x(), expected);
    }
}

TEST(TipGeometry, mayLeaveTheScreen)
{
    const TipAnchor anchor{{5, 4}, {0, 0, 8, 16}, horizontalOrientation};
    EXPECT_EQ(tipGeometry(anchor, {30, 13}).topLeft(), QPoint(-8, -14));
}

TEST(TipGeometry, isTheScreensCornerForOtherOrientations)
{
    EXPECT_EQ(tipGeometry({{300, 200}, {140, 0, 8, 16}, 7}, {18, 13}), QRect(0, 0, 22, 16));
}

} // namespace vistrel
