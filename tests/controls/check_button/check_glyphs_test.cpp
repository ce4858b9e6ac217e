#include "controls/check_button/check_glyphs.h"
#include "controls/check_button/check_layout.h"
#include "tests/support/printers.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr qint32 roundBtnType = 1;

QImage image(qint32 BtnType, CheckLook look, bool checked)
{
    return checkGlyph(BtnType, look, checked).imageFor(1);
}

int countOf(const QImage& image, QColor color)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            count += image.pixelColor(x, y) == color ? 1 : 0;
    }
    return count;
}

const QColor outline(165, 150, 132);
const QColor clear(0, 0, 0, 0);

} // namespace

TEST(CheckGlyphs, haveTheirOutlineAndMark)
{
    const QImage square = image(squareBtnType, CheckLook::Normal, true);
    EXPECT_EQ(square.size(), QSize(11, 11));
    EXPECT_EQ(countOf(square, outline), 40);
    EXPECT_EQ(countOf(square, Qt::black), 21);
    for (const QPoint mark : {QPoint(8, 2), QPoint(2, 4), QPoint(2, 6), QPoint(7, 5), QPoint(4, 8)})
        EXPECT_EQ(square.pixelColor(mark), QColor(Qt::black)) << mark.x() << ',' << mark.y();

    const QImage round = image(roundBtnType, CheckLook::Normal, true);
    EXPECT_EQ(round.size(), QSize(10, 10));
    EXPECT_EQ(countOf(round, outline), 24);
    EXPECT_EQ(countOf(round, Qt::black), 12);
    EXPECT_EQ(round, round.mirrored(true, false));
    EXPECT_EQ(round, round.mirrored(false, true));
    EXPECT_EQ(round.pixelColor(0, 0), clear);
    EXPECT_EQ(round.pixelColor(2, 1), outline);
    EXPECT_EQ(round.pixelColor(3, 4), QColor(Qt::black));
}

TEST(CheckGlyphs, tellTheirStateByTheInside)
{
    const QColor white(255, 255, 255), beige(222, 215, 198), gray(184, 184, 184), rose(222, 207, 206);
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
        EXPECT_EQ(countOf(square, row.square), row.checked ? 60 : 81);
        const QImage round = image(roundBtnType, row.look, row.checked);
        EXPECT_EQ(round.pixelColor(4, 1), row.round);
        EXPECT_EQ(round.pixelColor(1, 4), row.round);
        EXPECT_EQ(round.pixelColor(4, 4), row.checked ? QColor(Qt::black) : row.round);
    }
}

TEST(CheckGlyphs, everyTypeButTwoIsRound)
{
    for (const qint32 BtnType : {0, 1, 3, -2})
        EXPECT_EQ(image(BtnType, CheckLook::Hover, true).width(), 10);
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
    EXPECT_TRUE(layout.partAt({0, 39}).isEmpty());
    EXPECT_TRUE(layout.partAt({840, 40}).isEmpty());
    EXPECT_TRUE(layout.partAt({300, 180}).isEmpty());
}

} // namespace vistrel
