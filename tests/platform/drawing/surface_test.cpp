#include "platform/drawing/surface.h"
#include "tests/support/pixels.h"
#include "tests/support/printers.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr Color red = Color::rgb(255, 0, 0);
constexpr Color blue = Color::rgb(0, 0, 255);
constexpr Color white = Color::rgb(255, 255, 255);

Surface whiteSurface(ScaleMode mode, QSize sizePx, qreal ratio = 1)
{
    Surface surface(mode);
    surface.setBackColor(white);
    surface.resize(sizePx, ratio);
    return surface;
}

using Rows = std::vector<std::string>;

/// One character per device pixel: '.' for white, '#' for red, 'b' for blue, '?' for others.
Rows picture(const Surface& surface)
{
    Rows rows;
    for (int y = 0; y < surface.image().height(); ++y) {
        std::string row;
        for (int x = 0; x < surface.image().width(); ++x) {
            const QColor color = surface.image().pixelColor(x, y);
            row += color == Qt::white ? '.' : color == Qt::red ? '#' : color == Qt::blue ? 'b' : '?';
        }
        rows.push_back(row);
    }
    return rows;
}

} // namespace

TEST(Surface, linesLeaveOutTheirEndAndRectanglesHoldBothCorners)
{
    Surface surface = whiteSurface(ScaleMode::Pixels, {6, 4});
    surface.drawLine(0, 0, 5, 0, red);
    surface.drawRectangle(1, 1, 4, 3, red);
    surface.fillRectangle(3, 2, 2, 2, blue);
    EXPECT_EQ(picture(surface), (Rows{"#####.", ".####.", ".#bb#.", ".####."}));
}

TEST(Surface, tenTwipsFromTheFarEdgeIsTheLastPixel)
{
    Surface surface = whiteSurface(ScaleMode::Twips, {4, 3});
    surface.drawRectangle(0, 0, surface.ScaleWidth() - 10, surface.ScaleHeight() - 10, red);
    EXPECT_EQ(picture(surface), (Rows{"####", "#..#", "####"}));
    surface.drawLine(surface.ScaleWidth() - 10, 0, surface.ScaleWidth() - 10, surface.ScaleHeight(), blue);
    EXPECT_EQ(picture(surface), (Rows{"###b", "#..b", "###b"}));
}

TEST(Surface, aPixelIsASharpBlockOnADenseScreen)
{
    Surface dense = whiteSurface(ScaleMode::Pixels, {3, 2}, 2);
    dense.drawLine(0, 0, 2, 2, red);
    EXPECT_EQ(picture(dense), (Rows{"##....", "##....", "..##..", "..##.."}));
    Surface uneven = whiteSurface(ScaleMode::Pixels, {4, 1}, 1.5);
    uneven.fillRectangle(1, 0, 1, 0, red);
    EXPECT_EQ(picture(uneven), (Rows{"..#...", "..#..."}));
}

TEST(Surface, drawingStaysThroughAResize)
{
    Surface surface = whiteSurface(ScaleMode::Pixels, {2, 1});
    surface.fillRectangle(0, 0, 0, 0, red);
    surface.setBackColor(blue);
    surface.resize({3, 2}, 1);
    EXPECT_EQ(picture(surface), (Rows{"#.b", "bbb"}));
    surface.resize({2, 1}, 2);
    EXPECT_EQ(picture(surface), (Rows{"##..", "##.."}));
}

TEST(Surface, textIsMeasuredInWholePixelsAndWrittenTransparently)
{
    Surface surface = whiteSurface(ScaleMode::Twips, {60, 30});
    surface.setFont({u"DejaVu Sans"_s, 9});
    surface.setForeColor(red);
    const float width = surface.textWidth(u"Hi"_s), height = surface.textHeight(u"Hi"_s);
    EXPECT_EQ(width, 15 * static_cast<int>(width / 15));
    EXPECT_EQ(surface.textHeight(u"Hi\r\nHo"_s), 2 * height);
    EXPECT_EQ(surface.textWidth(u"i\nHi"_s), width);

    surface.setCurrentX(10 * 15);
    surface.setCurrentY(4 * 15);
    surface.print(u"Hi"_s);
    const QRect ink =
        boundsOf(surface.image(), surface.image().rect(), [](QColor pixel) { return pixel != Qt::white; });
    EXPECT_TRUE(QRect(10, 4, static_cast<int>(width / 15), static_cast<int>(height / 15)).contains(ink));
    EXPECT_GT(ink.height(), 7);
    EXPECT_EQ(surface.CurrentX(), 0);
    EXPECT_EQ(surface.CurrentY(), 4 * 15 + height);
}

TEST(Surface, picturesTakeTheirPlaceAndSizeWithHardEdgesAtAWholeMultiple)
{
    QImage checker(2, 1, QImage::Format_ARGB32);
    checker.setPixelColor(0, 0, Qt::red);
    checker.setPixelColor(1, 0, Qt::transparent);
    Surface surface = whiteSurface(ScaleMode::Pixels, {4, 2});
    surface.drawPicture(Picture(checker), 1, 1, 2, 1);
    surface.drawPicture(Picture(), 0, 0, 4, 2);
    EXPECT_EQ(picture(surface), (Rows{"....", ".#.."}));
    Surface dense = whiteSurface(ScaleMode::Pixels, {2, 1}, 3);
    dense.drawPicture(Picture(checker), 0, 0, 2, 1);
    EXPECT_EQ(picture(dense), Rows(3, "###..."));
}

TEST(Surface, edgesUseTheClassicColours)
{
    const auto colors = [](quint32 borders) {
        Surface surface = whiteSurface(ScaleMode::Pixels, {6, 6});
        surface.drawEdge({0, 0, 6, 6}, borders);
        const QImage& image = surface.image();
        return QList<QColor>{image.pixelColor(0, 0), image.pixelColor(1, 1), image.pixelColor(4, 4),
                             image.pixelColor(5, 5), image.pixelColor(5, 0)};
    };
    const QColor shadow(128, 128, 128), dark(64, 64, 64), light(212, 208, 200), highlight(255, 255, 255);
    EXPECT_EQ(colors(EDGE_SUNKEN), (QList<QColor>{shadow, dark, light, highlight, highlight}));
    EXPECT_EQ(colors(EDGE_RAISED), (QList<QColor>{light, highlight, shadow, dark, dark}));
    EXPECT_EQ(colors(BDR_SUNKENOUTER),
              (QList<QColor>{shadow, white.toQColor(), white.toQColor(), highlight, highlight}));
    EXPECT_EQ(colors(BDR_RAISEDINNER),
              (QList<QColor>{highlight, white.toQColor(), white.toQColor(), shadow, shadow}));
    EXPECT_EQ(colors(0), QList<QColor>(5, white.toQColor()));
}

TEST(Surface, clearCoversEverythingAndReturnsTheTextPosition)
{
    Surface surface = whiteSurface(ScaleMode::Pixels, {2, 1});
    surface.setCurrentX(7);
    surface.setBackColor(red);
    EXPECT_EQ(picture(surface), Rows{".."});
    surface.clear();
    EXPECT_EQ(picture(surface), Rows{"##"});
    EXPECT_EQ(surface.CurrentX(), 0);
}

} // namespace vistrel
