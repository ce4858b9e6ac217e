#include "controls/flat_button/button_layout.h"
#include "tests/support/printers.h"

#include <gtest/gtest.h>

namespace vistrel
{

namespace
{

// A button of 100 x 40 pixels, a 16 x 16 picture, a caption of 30 x 13.
constexpr ButtonSizes sizes = {1500, 600, 240, 240, 450, 195};

void expectLayout(const ButtonLayout& layout, QPointF picture, QPointF caption, int emboss)
{
    EXPECT_EQ(layout.picture, picture);
    EXPECT_EQ(layout.caption, caption);
    EXPECT_EQ(layout.emboss, emboss);
}

} // namespace

TEST(ButtonLayout, putsThePictureBesideOrAboveTheCaptionWithThreeEqualGaps)
{
    expectLayout(arrangeButton(0, sizes), {270, 180}, {780, 202.5}, 25);
    expectLayout(arrangeButton(1, sizes), {630, 55}, {525, 350}, 25);
}

TEST(ButtonLayout, everyOtherStylePutsThePictureOnePictureWidthFromTheRightEdge)
{
    for (const qint32 style : {2, -1, 99})
        expectLayout(arrangeButton(style, sizes), {1020, 180}, {270, 202.5}, 10);
}

TEST(ButtonLayout, aLonePartIsCentredEvenWhenItIsTooLarge)
{
    EXPECT_EQ(pictureAlone(sizes), QPointF(630, 180));
    EXPECT_EQ(captionAlone(sizes).caption, QPointF(525, 202.5));
    EXPECT_EQ(captionAlone({300, 150, 0, 0, 451, 195}).caption, QPointF(-75.5, -22.5));
}

} // namespace vistrel
