#include "controls/slider/cpv_slider.h"
#include "tests/support/printers.h"

#include <gtest/gtest.h>

namespace vistrel
{

namespace
{

const QColor face(212, 208, 200), shadow(128, 128, 128), dark(64, 64, 64), white(255, 255, 255);

Picture plain(QSize size, Qt::GlobalColor color)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(color);
    return Picture(image);
}

/// A horizontal slider of 100 x 16 pixels.
class CpvSliderLook : public testing::Test
{
protected:
    CpvSliderLook()
    {
        slider.InitProperties();
        slider.setOrientation(horizontalOrientation);
        slider.setSizeTwips(1500, 240);
    }

    QColor at(int x, int y) const { return slider.surface().image().pixelColor(x, y); }

    cpvSlider slider;
};

} // namespace

TEST_F(CpvSliderLook, theOwnThumbIsARaisedButton)
{
    for (const QPoint corner : {QPoint(0, 0), QPoint(15, 0), QPoint(0, 15), QPoint(15, 15)})
        EXPECT_EQ(at(corner.x(), corner.y()), QColor(Qt::black));
    EXPECT_EQ(at(1, 1), white);
    EXPECT_EQ(at(14, 14), shadow);
    EXPECT_EQ(at(3, 3), QColor(192, 192, 192));
    EXPECT_EQ(at(4, 4), shadow);
    EXPECT_EQ(at(11, 11), white);
    EXPECT_NE(at(5, 5), at(6, 5));
    EXPECT_EQ(at(5, 5), at(6, 6));
}

TEST_F(CpvSliderLook, drawnRailsFollowTheirStyle)
{
    const struct {
        qint32 style;
        QColor outer, inner, innerEnd, outerEnd;
    } rows[] = {
        {0, shadow, dark, face, white}, {1, face, white, shadow, dark}, {2, shadow, face, face, white},
        {3, white, face, face, shadow}, {4, face, face, face, face},    {5, face, face, face, face},
        {99, face, face, face, face},   {-1, face, face, face, face},
    };
    for (const auto& row : rows) {
        slider.setRailStyle(row.style);
        EXPECT_EQ(at(50, 6), row.outer) << row.style;
        EXPECT_EQ(at(50, 7), row.inner) << row.style;
        EXPECT_EQ(at(50, 8), row.innerEnd) << row.style;
        EXPECT_EQ(at(50, 9), row.outerEnd) << row.style;
        EXPECT_EQ(at(93, 8), row.outerEnd) << row.style;
        EXPECT_EQ(at(94, 8), face);
        EXPECT_EQ(slider.size(), QSize(100, 16));
    }
}

TEST_F(CpvSliderLook, aRailPictureSizesTheSliderAndIsDrawnInItsMiddle)
{
    slider.setSliderIcon(plain({8, 16}, Qt::red));
    slider.setRailStyle(pictureRailStyle);
    slider.setRailPicture(plain({175, 8}, Qt::blue));
    EXPECT_EQ(slider.Width(), 2685);
    EXPECT_EQ(slider.Height(), 240);
    EXPECT_EQ(slider.thumb(), QRectF(0, 0, 8, 16));
    EXPECT_EQ(at(8, 4), QColor(Qt::blue));
    EXPECT_EQ(at(176, 11), QColor(Qt::blue));
    for (const QPoint outside : {QPoint(177, 4), QPoint(100, 3), QPoint(100, 12)})
        EXPECT_EQ(at(outside.x(), outside.y()), face);

    slider.setOrientation(verticalOrientation);
    EXPECT_EQ(slider.size(), QSize(175, 12));
    slider.setRailPicture(plain({20, 60}, Qt::blue));
    EXPECT_EQ(slider.size(), QSize(20, 64));
    EXPECT_EQ(slider.thumb(), QRectF(6, 48, 8, 16));
    EXPECT_EQ(at(0, 2), QColor(Qt::blue));
    EXPECT_EQ(at(0, 1), face);
    EXPECT_EQ(at(0, 62), face);
}

TEST_F(CpvSliderLook, theThumbIsDrawnWhereTheValueIs)
{
    slider.setValue(5);
    EXPECT_EQ(at(42, 0), QColor(Qt::black));
    EXPECT_EQ(at(41, 0), face);
    EXPECT_EQ(at(0, 0), face);
    slider.setBackColor(Color::rgb(1, 2, 3));
    EXPECT_EQ(at(41, 0), QColor(1, 2, 3));
    slider.setEnabled(false);
    EXPECT_EQ(at(42, 0), QColor(Qt::black));
}

} // namespace vistrel
