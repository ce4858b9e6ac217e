#include "controls/flat_button/button_layout.h"
#include "tests/support/printers.h"

#include <gtest/gtest.h>

namespace vistrel
{

TEST(ButtonLayout, followsTheStyle)
{
    const ButtonSizes sizes = {1500, 600, 240, 240, 450, 195};
    const struct {
        qint32 style;
        QPointF picture, caption;
        int emboss;
    } rows[] = {
        {0, {270, 180}, {780, 202.5}, 25}, // Three equal gaps across,
        {1, {630, 55}, {525, 350}, 25},    // or down.
        {2, {1020, 180}, {270, 202.5}, 10},  {-1, {1020, 180}, {270, 202.5}, 10},
        {99, {1020, 180}, {270, 202.5}, 10},
    };
    for (const auto& row : rows) {
        const ButtonLayout layout = arrangeButton(row.style, sizes);
        EXPECT_EQ(layout.picture, row.picture) << row.style;
        EXPECT_EQ(layout.caption, row.caption) << row.style;
        EXPECT_EQ(layout.emboss, row.emboss) << row.style;
    }
    EXPECT_EQ(pictureAlone(sizes), QPointF(630, 180));
    EXPECT_EQ(captionAlone({300, 150, 0, 0, 451, 195}).caption, QPointF(-75.5, -22.5)); // Too large.
}

} // namespace vistrel
