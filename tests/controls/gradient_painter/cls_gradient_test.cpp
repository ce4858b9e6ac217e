#include "controls/gradient_painter/cls_gradient.h"
#include "tests/support/pixels.h"
#include "tests/support/printers.h"

#include <gtest/gtest.h>

#include <limits>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr Color red = Color::rgb(255, 0, 0);
constexpr Color blue = Color::rgb(0, 0, 255);
constexpr Color untouched = Color::rgb(1, 255, 1);

class Gradient : public testing::Test
{
protected:
    QImage painted(QSize sizePx, float angle, qreal ratio = 1)
    {
        Surface surface;
        surface.setBackColor(untouched);
        surface.resize(sizePx, ratio);
        gradient.setColor1(red);
        gradient.setColor2(blue);
        gradient.setAngle(angle);
        result = gradient.Draw(&surface);
        return surface.image();
    }

    QStringList boxes; // "title: text"
    clsGradient gradient{
        [this](const QString& text, const QString& title) { boxes += u"%1: %2"_s.arg(title, text); }};
    bool result = false;
};

} // namespace

TEST_F(Gradient, anglesAreNormalisedAndSystemColoursFixedWhenSet)
{
    const std::pair<float, float> rows[] = {{-90, 270}, {360, 0}, {45.5F, 45.5F}, {-720.25F, 359.75F}};
    for (const auto& [set, stored] : rows) {
        gradient.setAngle(set);
        EXPECT_EQ(gradient.Angle(), stored);
    }
    gradient.setColor1({0x80000005});
    EXPECT_EQ(gradient.Color1(), Color{0xFFFFFF});
    gradient.setColor2({0x80000019});
    EXPECT_EQ(gradient.Color2(), Color{0x80000019}) << "no such system colour";
}

TEST_F(Gradient, runsFromItsFirstColourInTheDirectionOfTheAngle)
{
    const struct {
        float angle;
        QPoint from, to;
    } rows[] = {
        {0, {0, 25}, {99, 25}},  {90, {50, 49}, {50, 0}}, {180, {99, 25}, {0, 25}}, {270, {50, 0}, {50, 49}},
        {315, {0, 0}, {99, 49}}, {45, {0, 49}, {99, 0}},  {135, {99, 49}, {0, 0}},  {225, {99, 0}, {0, 49}},
    };
    for (const auto& row : rows) {
        const QImage image = painted({100, 50}, row.angle);
        EXPECT_TRUE(result);
        EXPECT_GT(image.pixelColor(row.from).red(), 200) << row.angle;
        EXPECT_GT(image.pixelColor(row.to).blue(), 200) << row.angle;
    }
}

TEST_F(Gradient, theFirstColumnHasTheFirstColourAndTheLastColourNeverShows)
{
    for (const qreal ratio : {1.0, 2.0}) { // The same on a dense screen, of whose pixels it uses every one.
        const QImage image = painted(QSize(100, 50) / ratio, 0, ratio);
        EXPECT_EQ(image.size(), QSize(100, 50));
        EXPECT_EQ(image.pixelColor(0, 49), QColor(255, 0, 0));
        EXPECT_EQ(image.pixelColor(1, 0), QColor(252, 0, 2)); // 255 - 2.5 is 252.5, a tie.
        EXPECT_EQ(image.pixelColor(99, 0), QColor(8, 0, 248));
    }
}

TEST_F(Gradient, coversEveryPixelAtEveryAngle)
{
    for (float angle = 0; angle < 360; angle += 7.5F) {
        for (const QSize size : {QSize(37, 12), QSize(12, 37), QSize(2, 9), QSize(600, 40)}) {
            const auto isLeft = [](QColor pixel) { return pixel == untouched.toQColor(); };
            ASSERT_EQ(boundsOf(painted(size, angle), QRect({}, size), isLeft), QRect()) << angle;
        }
    }
}

TEST_F(Gradient, thinTargetsStayAsTheyAreAndErrorsAreShown)
{
    for (const QSize size : {QSize(1, 20), QSize(20, 1)}) {
        EXPECT_EQ(painted(size, 0).pixelColor(0, 0), untouched.toQColor());
        EXPECT_FALSE(result);
    }
    EXPECT_TRUE(boxes.isEmpty());
    EXPECT_FALSE(gradient.Draw(nullptr));
    painted({20, 20}, std::numeric_limits<float>::infinity());
    EXPECT_FALSE(result);
    EXPECT_EQ(boxes, (QStringList{u": Object variable not set"_s, u"GradientRect: Overflow"_s}));
}

} // namespace vistrel
