#include "controls/flat_button/f_button.h"
#include "tests/support/pixels.h"
#include "tests/support/printers.h"
#include "tests/support/properties.h"

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

/// A button of 60 x 24 pixels.
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

    void show(const QString& caption)
    {
        button.setCaption(caption);
        button.setStyle(button.style()); // Repaints.
    }

    QRect bounds(Color color) const
    {
        const QImage& image = button.surface().image();
        return boundsOf(image, image.rect(), [&](QColor pixel) { return nearest(pixel) == color; });
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

TEST_F(FButtonLook, anEmptyButtonIsBackgroundAndOutlineAtEverySize)
{
    show({});
    EXPECT_EQ(bounds(back), QRect(0, 0, 60, 24));
    button.setIfDraw(true);
    EXPECT_EQ(bounds(outline), QRect(0, 0, 60, 24));
    EXPECT_EQ(bounds(back), QRect(1, 1, 58, 22));
    button.setSizeTwips(30 * 15, 10 * 15);
    EXPECT_EQ(bounds(outline), QRect(0, 0, 30, 10));
}

TEST_F(FButtonLook, aNewCaptionShowsCentredAtTheNextRepaint)
{
    show({});
    button.setCaption(u"HHH"_s);
    EXPECT_TRUE(bounds(ink).isEmpty());
    QStringList reported;
    QObject::connect(&button, &FButton::propertyChanged, [&](const QString& name) { reported += name; });
    button.setStyle(0);
    EXPECT_EQ(reported, (QStringList{u"Caption"_s, u"style"_s})) << "each repaint reports the caption";
    EXPECT_LE(std::abs(bounds(ink).center().x() - 30), 1);
    EXPECT_LE(std::abs(bounds(ink).center().y() - 12), 2);
}

TEST_F(FButtonLook, thePictureTakesItsPlaceByStyle)
{
    show({});
    button.setPicture(square(10));
    EXPECT_EQ(bounds(magenta), QRect(25, 7, 10, 10)) << "alone";
    show(u"H"_s);
    EXPECT_GT(bounds(ink).left(), bounds(magenta).right());
    button.setStyle(99);
    EXPECT_EQ(bounds(magenta), QRect(40, 7, 10, 10));
    EXPECT_LT(bounds(ink).right(), 40);
}

TEST_F(FButtonLook, aDisabledCaptionHasAWhiteCopyDownAndRight)
{
    show(u"I"_s);
    const QRect enabled = bounds(ink);
    button.QWidget::setEnabled(false);
    button.setStyle(0);
    EXPECT_TRUE(bounds(white).isEmpty()) << "the form's own enabling keeps the look";
    button.setEnabled(false);
    EXPECT_EQ(bounds(white), enabled.translated(2, 2));
    EXPECT_EQ(bounds(ink), enabled);
    button.setPicture(square(4));
    button.setStyle(2);
    EXPECT_EQ(bounds(white).topLeft() - bounds(ink).topLeft(), QPoint(1, 1));
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

TEST_F(FButtonLook, aNewButtonsCaptionComesBackFlat)
{
    for (const QString& caption : {u"Flash Button"_s, u"Flat Button"_s, u""_s}) {
        FButton loaded;
        button.setCaption(caption);
        loaded.ReadProperties(saved(button));
        EXPECT_EQ(loaded.Caption(), caption.isEmpty() ? caption : u"Flat Button"_s);
    }
}

} // namespace vistrel
