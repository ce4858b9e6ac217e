#include "controls/slider/slider_geometry.h"
#include "tests/support/printers.h"

#include <gtest/gtest.h>

namespace vistrel
{

namespace
{

constexpr SliderRange tenSteps{0, 10};

SliderParts lying(double length, QSize thumb = {16, 16})
{
    return {horizontalOrientation, {length, 16}, thumb, std::nullopt};
}

SliderParts standing(double length, QSize thumb = {16, 16})
{
    return {verticalOrientation, {16, length}, thumb, std::nullopt};
}

} // namespace

TEST(SliderGeometry, railEdgesTakeTiesToEven)
{
    EXPECT_EQ(railRect(lying(100)), QRect(6, 6, 88, 4));
    EXPECT_EQ(railRect(standing(100)), QRect(6, 6, 4, 88));
    EXPECT_EQ(railRect(lying(100, {15, 13})), QRect(6, 4, 89, 4)); // From 5.5 and 4.5.
    EXPECT_EQ(railRect(standing(100, {13, 15})), QRect(4, 6, 4, 89));
    EXPECT_EQ(railRect(lying(99.5)).width(), 88);  // Ends at 93.5.
    EXPECT_EQ(railRect(lying(100.5)).width(), 88); // Ends at 94.5.
}

TEST(SliderGeometry, valuesTakeTiesToEven)
{
    EXPECT_EQ(valueAt(lying(100), tenSteps, 21), 2); // 2.5
    EXPECT_EQ(valueAt(lying(116), tenSteps, 35), 4); // 3.5
    EXPECT_EQ(valueAt(standing(100), tenSteps, 63), 2);
    EXPECT_EQ(valueAt(lying(100), {-10, 0}, 21), -8); // -7.5
    EXPECT_EQ(thumbAlong(lying(100), tenSteps, 2), 16.8F);
    EXPECT_EQ(thumbAlong(standing(100), tenSteps, 10), 0.0F);
}

TEST(SliderGeometry, valueAtUndoesThumbAlong)
{
    const SliderRange ranges[] = {{0, 10}, {1, 100}, {-300, 300}, {-32768, -1}, {0, 32767}, {7, 8}};
    for (const SliderRange& range : ranges) {
        for (const SliderParts& parts : {lying(100), lying(17), standing(195), lying(12)}) {
            for (int value = range.Min; value <= range.Max; ++value) {
                const std::optional<float> position = thumbAlong(parts, range, value);
                ASSERT_EQ(valueAt(parts, range, *position), value) << parts.track();
            }
        }
    }
}

TEST(SliderGeometry, withoutTrackRangeOrOrientationNothingMoves)
{
    EXPECT_EQ(valueAt(lying(16), {3, 9}, 0), 0);
    EXPECT_EQ(thumbAlong(lying(100), {4, 4}, 4), std::nullopt);
    EXPECT_EQ(valueAt(lying(100), {4, 4}, 30), 4);
    SliderParts other = lying(100);
    other.orientation = 2;
    EXPECT_EQ(thumbAlong(other, tenSteps, 4), std::nullopt);
    EXPECT_EQ(valueAt(other, {3, 9}, 30), 0);
    EXPECT_TRUE(railRect(other).isEmpty());
    EXPECT_EQ(sliderSizeTwips(other, {600, 900}), QSizeF(600, 900));
}

TEST(SliderGeometry, aDrawnRailLeavesTheLengthToTheHostAndAPictureSetsIt)
{
    SliderParts parts = lying(0, {8, 16});
    EXPECT_EQ(sliderSizeTwips(parts, {1500, 999}), QSizeF(1500, 240));
    EXPECT_EQ(sliderSizeTwips(standing(0, {8, 16}), {999, 0}), QSizeF(120, 240));
    parts.rail = QSize(175, 23);
    EXPECT_EQ(sliderSizeTwips(parts, {0, 0}), QSizeF(2685, 345));
    EXPECT_EQ(thumbAcross(parts), 3.5F);
}

} // namespace vistrel
