#include "controls/flat_button/f_button.h"
#include "tests/support/printers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr Color back = Color::rgb(0, 160, 0);
constexpr Color outline = Color::rgb(0, 118, 177);
constexpr Color ink = Color::rgb(10, 20, 30);
constexpr Color white = Color::rgb(255, 255, 255);
constexpr Color magenta = Color::rgb(255, 0, 255);

/// The one of the colours above that a pixel, perhaps of a letter's smooth edge, is nearest to.
Color nearest(QColor pixel)
{
    const auto distance = [&](Color color) {
        const QColor other = color.toQColor();
        return std::abs(pixel.red() - other.red()) + std::abs(pixel.green() - other.green()) +
               std::abs(pixel.blue() - other.blue());
    };
    return std::ranges::min({back, outline, ink, white, magenta}, {}, distance);
}

class FButtonLook : public testing::Test
{
protected:
    FButtonLook()
    {
        button.InitProperties();
        button.setFont({u"DejaVu Sans"_s, 9});
        button.setBackColor(back);
        button.setStyleColor(outline);
        button.setForeColor(ink);
        button.setSizeTwips(60 * 15, 24 * 15);
    }

    /// Bounds of the pixels of that colour.
    QRect bounds(Color color) const
    {
        QRect result;
        const QImage& image = button.surface().image();
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (nearest(image.pixelColor(x, y)) == color) result |= QRect(x, y, 1, 1);
            }
        }
        return result;
    }

    static Picture square(int size)
    {
        QImage image(size, size, QImage::Format_RGB32);
        image.fill(Qt::magenta);
        return Picture(image);
    }

    FButton button;
};

} // namespace

TEST_F(FButtonLook, anEmptyButtonIsBackgroundAndOutline)
{
    button.setCaption(u""_s);
    button.setIfDraw(false);
    EXPECT_EQ(bounds(back), QRect(0, 0, 60, 24));
    button.setIfDraw(true);
    EXPECT_EQ(bounds(outline), QRect(0, 0, 60, 24));
    EXPECT_EQ(bounds(back), QRect(1, 1, 58, 22));
}

TEST_F(FButtonLook, aCaptionIsCentredInTheForeColour)
{
    button.setCaption(u"HHH"_s);
    button.setStyle(0);
    const QRect text = bounds(ink);
    EXPECT_LE(std::abs(text.center().x() - 30), 1);
    EXPECT_LE(std::abs(text.center().y() - 12), 2);
}

TEST_F(FButtonLook, aNewCaptionShowsAtTheNextRepaint)
{
    button.setCaption(u""_s);
    button.setStyle(0);
    button.setCaption(u"HHH"_s);
    EXPECT_TRUE(bounds(ink).isEmpty());
    button.setStyle(0);
    EXPECT_FALSE(bounds(ink).isEmpty());
}

TEST_F(FButtonLook, aPictureAloneIsCentred)
{
    button.setCaption(u""_s);
    button.setPicture(square(10));
    EXPECT_EQ(bounds(magenta), QRect(25, 7, 10, 10));
}

TEST_F(FButtonLook, thePictureTakesItsPlaceByStyle)
{
    button.setCaption(u"H"_s);
    button.setPicture(square(10));
    const int textWidthPx = static_cast<int>(button.surface().textWidth(u"H"_s) / 15);
    EXPECT_EQ(bounds(magenta).left(), qRound((60 - 10 - textWidthPx) / 3.0));
    EXPECT_GT(bounds(ink).left(), bounds(magenta).right());

    button.setSizeTwips(60 * 15, 40 * 15);
    button.setStyle(1);
    EXPECT_EQ(bounds(magenta).left(), 25);
    EXPECT_GT(bounds(ink).top(), bounds(magenta).bottom());

    button.setStyle(99);
    EXPECT_EQ(bounds(magenta), QRect(40, 15, 10, 10));
    EXPECT_LT(bounds(ink).right(), 40);
}

TEST_F(FButtonLook, aDisabledCaptionHasAWhiteCopyTwoPixelsDownAndRight)
{
    button.setCaption(u"I"_s);
    button.setStyle(0);
    const QRect enabled = bounds(ink);
    button.setEnabled(false);
    EXPECT_EQ(bounds(white), enabled.translated(2, 2));
    EXPECT_EQ(bounds(ink), enabled);
    EXPECT_EQ(button.ForeColor(), ink);

    button.setPicture(square(4));
    button.setStyle(2);
    const QPoint shift = bounds(white).topLeft() - bounds(ink).topLeft();
    EXPECT_EQ(shift, QPoint(1, 1));
}

TEST_F(FButtonLook, theFormsOwnEnabledStopsInputButKeepsTheLook)
{
    button.setCaption(u"I"_s);
    button.QWidget::setEnabled(false);
    button.setStyle(0);
    EXPECT_TRUE(button.Enabled());
    EXPECT_TRUE(bounds(white).isEmpty());
}

TEST_F(FButtonLook, theHoverRepaintUsesTheHoverColourForTheCaptionOnly)
{
    button.setHovForceColor(magenta);
    button.setCaption(u"I"_s);
    button.SetButton(false);
    EXPECT_FALSE(bounds(magenta).isEmpty());
    EXPECT_TRUE(bounds(ink).isEmpty());
    EXPECT_EQ(button.ForeColor(), ink);
}

TEST_F(FButtonLook, captionGlyphsAreDrawnWithoutTheirFont)
{
    for (const QString& caption : {u"0"_s, u"r"_s}) {
        button.setCaption(caption);
        button.setFont({u"Webdings"_s, 9});
        EXPECT_FALSE(bounds(ink).isEmpty());
        EXPECT_LE(bounds(ink).width(), 12);
        EXPECT_LE(std::abs(bounds(ink).center().x() - 29), 1);
    }
}

TEST_F(FButtonLook, aResizeRepaints)
{
    button.setCaption(u""_s);
    button.setIfDraw(true);
    button.setSizeTwips(30 * 15, 10 * 15);
    EXPECT_EQ(bounds(outline), QRect(0, 0, 30, 10));
}

} // namespace vistrel
