#include "platform/forms/frame.h"
#include "platform/forms/label.h"
#include "platform/forms/picture_box.h"
#include "platform/forms/shape.h"
#include "platform/forms/timer.h"
#include "tests/support/pixels.h"
#include "tests/support/pointer.h"
#include "tests/support/printers.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr Color red = Color::rgb(255, 0, 0);

bool hasInk(const QImage& image, QRect part)
{
    return !boundsOf(image, part, [](QColor pixel) { return pixel != Qt::white; }).isEmpty();
}

TEST(Label, AlignsItsCaptionOnWhatLiesBehind)
{
    QWidget page;
    page.setPalette(QColor(Qt::white));
    Label label(&page);
    label.resize(100, 20);
    page.resize(100, 20);
    for (const qint32 alignment : {0, 1, 2}) {
        PropertyBag bag;
        bag.set(u"Caption"_s, u"MM"_s);
        bag.set(u"Alignment"_s, alignment);
        label.ReadProperties(bag);
        const QImage image = page.grab().toImage();
        EXPECT_EQ(hasInk(image, {0, 0, 30, 20}), alignment == 0) << alignment;
        EXPECT_EQ(hasInk(image, {36, 0, 28, 20}), alignment == 2) << alignment;
        EXPECT_EQ(hasInk(image, {70, 0, 30, 20}), alignment == 1) << alignment;
    }
}

TEST(PictureBox, KeepsWhatIsDrawnUntilItIsClearedAndAsksAgainAfterResizing)
{
    PictureBox box;
    box.InitProperties();
    box.setSizeTwips(300, 300);
    box.canvas().fillRectangle(0, 0, 19, 19, red);
    EXPECT_EQ(box.surface().image().pixelColor(10, 10), QColor(255, 0, 0));
    box.clearPicture();
    EXPECT_EQ(box.surface().image().pixelColor(10, 10), QColor(212, 208, 200));

    int repaints = 0;
    QObject::connect(&box, &PictureBox::Repaint, [&] { ++repaints; });
    box.setSizeTwips(600, 300);
    EXPECT_EQ(repaints, 1);
}

TEST(PictureBox, ReportsPressesOfEveryButtonAndLeftClicks)
{
    PictureBox box;
    box.resize(40, 40);
    box.show();
    QList<qint16> pressed;
    int clicks = 0;
    QObject::connect(&box, &PictureBox::MouseDown,
                     [&](qint16& Button, qint16&, float&, float&) { pressed += Button; });
    QObject::connect(&box, &PictureBox::Click, [&] { ++clicks; });
    for (const auto button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton})
        Pointer::click(box, {5, 5}, button);
    EXPECT_EQ(pressed, QList<qint16>({1, 2, 4}));
    EXPECT_EQ(clicks, 1);
}

TEST(Frame, LeavesItsLineOutBehindTheCaptionAsAShapeDoesNot)
{
    PropertyBag bag;
    bag.set(u"BorderColor"_s, red);
    bag.set(u"Caption"_s, u"M"_s);
    Frame frame;
    frame.ReadProperties(bag);
    frame.setSizeTwips(1500, 750);
    const int line = qRound(frame.surface().textHeight(u"M"_s) / 2);
    for (const QPoint at : {QPoint(2, line), QPoint(60, line), QPoint(99, 49)})
        EXPECT_EQ(pixel(frame, at), QColor(255, 0, 0));
    EXPECT_NE(pixel(frame, {8, line}), QColor(255, 0, 0));

    Shape shape;
    shape.ReadProperties(bag);
    shape.setSizeTwips(150, 90);
    for (const QPoint at : {QPoint(0, 0), QPoint(9, 5)})
        EXPECT_EQ(pixel(shape, at), QColor(255, 0, 0));
    for (const QPoint at : {QPoint(1, 1), QPoint(8, 4)})
        EXPECT_EQ(pixel(shape, at), QColor(Qt::white));
}

TEST(Timer, TicksWhileItIsOn)
{
    PropertyBag bag;
    bag.set(u"Interval"_s, 5);
    Timer timer;
    timer.ReadProperties(bag);
    EXPECT_FALSE(timer.Enabled());
    int ticks = 0;
    QObject::connect(&timer, &Timer::Tick, [&] { ++ticks; });
    timer.setEnabled(true);
    EXPECT_TRUE(QTest::qWaitFor([&] { return ticks >= 2; }));
    timer.setEnabled(false);
    const int before = ticks;
    QTest::qWait(20);
    EXPECT_EQ(ticks, before);
}

} // namespace

} // namespace vistrel
