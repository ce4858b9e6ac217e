#include "controls/combo_box/button_pictures.h"
#include "controls/combo_box/cool_combo.h"
#include "tests/support/printers.h"

#include <QComboBox>

#include <gtest/gtest.h>

#include <cstdlib>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

const QColor frame(165, 150, 132), field(0, 130, 198), arrow(255, 207, 132), behind(27, 130, 180);

class CoolComboLook : public testing::Test
{
protected:
    CoolComboLook()
    {
        combo.InitProperties();
        combo.AddItem(u"WWW"_s);
        combo.setSizeTwips(1500, 900);
    }

    QColor at(int x, int y) { return combo.grab().toImage().pixelColor(x, y); }
    QRect rectOf(const QString& part) const { return combo.findChild<QWidget*>(part)->geometry(); }

    coolCombo combo;
};

// Columns of a row of the picture that show the arrow.
QString arrowRow(const Picture& picture, int row)
{
    QString columns;
    const QImage image = picture.imageFor(1);
    for (int x = 0; x < image.width(); ++x)
        columns += image.pixelColor(x, row) == arrow ? u'#' : u'.';
    return columns;
}

} // namespace

TEST(ComboButtonPictures, pointDownAtRestAndUpWhenOpened)
{
    EXPECT_EQ(picUP().size(), QSize(13, 20));
    EXPECT_EQ(arrowRow(picUP(), 8), u"............."_s);
    EXPECT_EQ(arrowRow(picUP(), 9), u"....#####...."_s);
    EXPECT_EQ(arrowRow(picUP(), 10), u".....###....."_s);
    EXPECT_EQ(arrowRow(picUP(), 11), u"......#......"_s);
    EXPECT_EQ(arrowRow(picDown(), 8), u"......#......"_s);
    EXPECT_EQ(arrowRow(picDown(), 9), u".....###....."_s);
    EXPECT_EQ(arrowRow(picDown(), 10), u"....#####...."_s);
    EXPECT_EQ(arrowRow(picDown(), 11), u"............."_s);
}

TEST_F(CoolComboLook, theHeightIsFixedAndThePartsFillTheWidth)
{
    EXPECT_EQ(combo.size(), QSize(100, 17));
    EXPECT_EQ(rectOf(u"pic1"_s), QRect(0, 0, 100, 17));
    EXPECT_EQ(rectOf(u"Combo1"_s).topLeft(), QPoint(-2, -2));
    EXPECT_EQ(rectOf(u"Combo1"_s).width(), 103);
    EXPECT_EQ(rectOf(u"Pic2"_s), QRect(83, 0, 17, 18));
    combo.resize(60, 40);
    EXPECT_EQ(combo.grab().toImage().size(), QSize(60, 17));
    EXPECT_EQ(rectOf(u"Pic2"_s).left(), 43);
}

TEST_F(CoolComboLook, hasAOnePixelFrameAndADropButtonAtTheRight)
{
    for (const QPoint edge : {QPoint(0, 0), QPoint(50, 0), QPoint(99, 8), QPoint(50, 16), QPoint(0, 8)})
        EXPECT_EQ(at(edge.x(), edge.y()), frame);
    EXPECT_EQ(at(1, 1), QColor(Qt::white));
    EXPECT_EQ(at(82, 15), QColor(Qt::white));
    EXPECT_EQ(at(83, 1), field);
    EXPECT_EQ(at(83 + 6, 11), arrow);
    EXPECT_EQ(at(97, 8), behind);
}

TEST_F(CoolComboLook, rightToLeftPutsTheButtonAtTheLeft)
{
    combo.setRightToLeft(true);
    EXPECT_EQ(rectOf(u"Pic2"_s).left(), 0);
    EXPECT_EQ(at(6, 11), arrow);
    EXPECT_EQ(at(98, 8), QColor(Qt::white));
}

TEST_F(CoolComboLook, theTextStandsOnItsSideInTheControlsColours)
{
    combo.setForeColor(Color::rgb(200, 0, 0));
    combo.setBackColor(Color::rgb(0, 0, 0));
    const auto textBounds = [this] {
        const QImage image = combo.grab().toImage();
        QRect bounds;
        for (int y = 2; y < 15; ++y) {
            for (int x = 2; x < 98; ++x) {
                const QColor pixel = image.pixelColor(x, y);
                if (pixel.red() > 60 && pixel.green() == 0 && pixel.blue() == 0) bounds |= QRect(x, y, 1, 1);
            }
        }
        return bounds;
    };
    EXPECT_TRUE(textBounds().isEmpty());
    combo.setListIndex(u"0"_s);
    EXPECT_LT(textBounds().left(), 8);
    EXPECT_LE(std::abs(textBounds().center().y() - 8), 1);
    combo.setRightToLeft(true);
    EXPECT_GT(textBounds().right(), 90);
}

TEST_F(CoolComboLook, aLoadedControlHasAnEmptyButtonAndADisabledOneIsPale)
{
    combo.setButtonIcon(Picture());
    EXPECT_EQ(at(90, 8), behind);
    combo.setEnabled(false);
    EXPECT_GT(at(90, 8).red(), behind.red() + 60);
    EXPECT_EQ(at(5, 2), QColor(212, 208, 200));
    EXPECT_EQ(at(0, 0), frame);
}

} // namespace vistrel
