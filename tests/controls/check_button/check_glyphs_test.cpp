#include "controls/check_button/check_glyphs.h"
#include "controls/check_button/check_layout.h"
#include "tests/support/printers.h"

#include <gtest/gtest.h>

namespace vistrel
{

namespace
{

QImage image(qint32 BtnType, CheckLook look, bool checked)
{
    return checkGlyph(BtnType, look, checked).imageFor(1);
}

const QColor clear(0, 0, 0, 0), white(255, 255, 255), beige(222, 215, 198), gray(184, 184, 184),
    rose(222, 207, 206), outline(165, 150, 132), black(0, 0, 0);

} // namespace

TEST(CheckGlyphs, tellTheirStateByTheInside)
{
    using enum CheckLook;
    const struct {
        CheckLook look;
        bool checked;
        QColor square, round;
    } rows[] = {
        {Normal, false, clear, white},  {Hover, false, white, rose},    {Pressed, false, beige, rose},
        {Disabled, false, clear, rose}, {Normal, true, clear, white},   {Hover, true, gray, clear},
        {Pressed, true, white, clear},  {Disabled, true, beige, clear},
    };
    for (const auto& row : rows) {
        const QImage square = image(squareBtnType, row.look, row.checked);
        EXPECT_EQ(square.size(), QSize(11, 11));
        EXPECT_EQ(square.pixelColor(0, 0), outline);
        EXPECT_EQ(square.pixelColor(1, 1), row.square);
        EXPECT_EQ(square.pixelColor(4, 8), row.checked ? black : row.square);
        for (const qint32 otherType : {0, 1, 3, -2}) {
            const QImage round = image(otherType, row.look, row.checked);
            EXPECT_EQ(round, round.mirrored(true, true));
            EXPECT_EQ(round.size(), QSize(10, 10));
            EXPECT_EQ(round.pixelColor(0, 0), clear);
            EXPECT_EQ(round.pixelColor(4, 1), row.round);
            EXPECT_EQ(round.pixelColor(4, 4), row.checked ? black : row.round);
        }
    }
}

TEST(CheckLayout, centresTheBoxAndMovesItDown)
{
    const CheckLayout layout = layoutCheckButton(255, {600, 195});
    EXPECT_EQ(layout.p, QRectF(0, 47.5, 240, 240));
    EXPECT_EQ(layout.lbl, QRectF(240, 37.5, 600, 195));
    EXPECT_EQ(layoutCheckButton(100, {}).p.top(), -30);
}

TEST(CheckLayout, knowsThePartUnderAPoint)
{
    const CheckLayout layout = layoutCheckButton(240, {600, 150});
    EXPECT_EQ(layout.partAt({0, 40}), layout.p);
    EXPECT_EQ(layout.partAt({239.5, 40}), layout.p);
    EXPECT_EQ(layout.partAt({240, 40}), layout.lbl);
    for (const QPointF beside : {QPointF(0, 39), QPointF(840, 40), QPointF(300, 180)})
        EXPECT_TRUE(layout.partAt(beside).isEmpty());
}

} // namespace vistrel
