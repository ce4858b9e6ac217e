#include "controls/flat_button/f_button.h"
#include "tests/support/pointer.h"
#include "tests/support/printers.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr Color back = Color::rgb(200, 220, 240);
constexpr Color lit = Color::rgb(252, 205, 135);
constexpr Color down = Color::rgb(217, 214, 197);
constexpr Color light = Color::rgb(255, 255, 255);
constexpr Color dark = Color::rgb(128, 128, 128);

/// A button of 60 x 24 pixels at (20, 20) of a form, seen through its events and its pixels.
class FButtonPointer : public testing::Test
{
protected:
    FButtonPointer()
    {
        form.setGeometry(100, 100, 200, 120);
        button.InitProperties();
        button.setCaption(u"Go"_s);
        button.setBackColor(back);
        button.setMouseOnColor(lit);
        button.setMouseDownColor(down);
        button.setStyle3DColor1(light);
        button.setStyle3DColor2(dark);
        button.move(20, 20);
        button.setSizeTwips(60 * 15, 24 * 15);
        form.show();
        Pointer::moveTo(form, {150, 100});
        record();
    }

    void record()
    {
        const auto note = [this](const char* event) {
            return [this, event](qint16& Button, qint16& Shift, float& X, float& Y) {
                events += u"%1 %2 %3 %4,%5"_s.arg(QString::fromLatin1(event))
                              .arg(Button)
                              .arg(Shift)
                              .arg(static_cast<double>(X))
                              .arg(static_cast<double>(Y));
            };
        };
        QObject::connect(&button, &FButton::MouseDown, note("down"));
        QObject::connect(&button, &FButton::MouseMove, note("move"));
        QObject::connect(&button, &FButton::MouseUp, note("up"));
        QObject::connect(&button, &FButton::Click, [this] { events += u"click"_s; });
    }

    QColor at(int x, int y) const { return button.surface().image().pixelColor(x, y); }

    void expectLook(Color background, Color leftTop, Color rightBottom) const
    {
        EXPECT_EQ(at(3, 3), background.toQColor());
        EXPECT_EQ(at(0, 10), leftTop.toQColor());
        EXPECT_EQ(at(30, 0), leftTop.toQColor());
        EXPECT_EQ(at(59, 10), rightBottom.toQColor());
        EXPECT_EQ(at(30, 23), rightBottom.toQColor());
    }
    void expectResting() const { expectLook(back, back, back); }
    void expectHover() const { expectLook(lit, light, dark); }
    void expectPressed() const { expectLook(down, dark, light); }

    QStringList events;
    QWidget form;
    FButton button{&form};
};

} // namespace

TEST_F(FButtonPointer, lightsUpUnderThePointerAndRestsWhenItLeaves)
{
    expectResting();
    Pointer::moveTo(button, {10, 5});
    expectHover();
    Pointer::moveTo(button, {11, 5});
    expectHover();
    Pointer::moveTo(form, {150, 90});
    expectResting();
    EXPECT_EQ(events, (QStringList{u"move 0 0 150,75"_s, u"move 0 0 165,75"_s, u"move 0 0 1950,1050"_s}));
}

TEST_F(FButtonPointer, aClickSinksTheButtonAndIsRaisedLast)
{
    Pointer::moveTo(button, {10, 5});
    events.clear();
    Pointer::press(button, {10, 5}, Qt::LeftButton, Qt::ShiftModifier | Qt::AltModifier);
    expectPressed();
    Pointer::release(button, {10, 5});
    EXPECT_EQ(events, (QStringList{u"down 1 5 150,75"_s, u"up 1 0 150,75"_s, u"click"_s}));
    expectResting();
    Pointer::moveTo(button, {12, 5});
    expectHover();
}

TEST_F(FButtonPointer, aReleaseOutsideIsNoClick)
{
    Pointer::moveTo(button, {10, 5});
    Pointer::press(button, {10, 5});
    events.clear();
    Pointer::moveTo(button, {70, 5});
    expectResting();
    Pointer::release(button, {70, 5});
    expectResting();
    EXPECT_EQ(events, (QStringList{u"move 1 0 1050,75"_s, u"up 1 0 1050,75"_s}));
}

TEST_F(FButtonPointer, draggingBackInLightsUpAndClicks)
{
    Pointer::moveTo(button, {10, 5});
    Pointer::press(button, {10, 5});
    Pointer::moveTo(button, {70, 5});
    Pointer::moveTo(button, {10, 5});
    expectHover();
    Pointer::release(button, {10, 5});
    EXPECT_EQ(events.last(), u"click"_s);
}

TEST_F(FButtonPointer, otherButtonsSinkItButDoNotClick)
{
    Pointer::moveTo(button, {10, 5});
    events.clear();
    Pointer::press(button, {10, 5}, Qt::RightButton);
    expectPressed();
    Pointer::release(button, {10, 5}, Qt::RightButton);
    EXPECT_EQ(events, (QStringList{u"down 2 0 150,75"_s, u"up 2 0 150,75"_s}));
}

TEST_F(FButtonPointer, theFarEdgesCountAsInside)
{
    Pointer::moveTo(button, {10, 5});
    Pointer::press(button, {10, 5});
    Pointer::moveTo(button, {60, 24});
    EXPECT_EQ(at(3, 3), down.toQColor());
    Pointer::moveTo(button, {61, 24});
    EXPECT_EQ(at(3, 3), back.toQColor());
    Pointer::release(button, {61, 24});
}

TEST_F(FButtonPointer, blackStandsForTheBackground)
{
    button.setMouseOnColor({0});
    Pointer::moveTo(button, {10, 5});
    expectLook(back, light, dark);
}

TEST_F(FButtonPointer, aPropertyChangeWhileLitTakesTheFrameAway)
{
    Pointer::moveTo(button, {10, 5});
    button.setStyle(1);
    expectLook(lit, lit, lit);
    button.setBackColor(down);
    expectLook(down, down, down);
}

TEST_F(FButtonPointer, aHandlerMayMoveThePoint)
{
    const auto connection =
        QObject::connect(&button, &FButton::MouseMove, [](qint16&, qint16&, float& X, float&) { X = -1; });
    Pointer::moveTo(button, {10, 5});
    expectResting();
    QObject::disconnect(connection);
}

TEST_F(FButtonPointer, disabledButtonsTakeNoMouse)
{
    button.setEnabled(false);
    Pointer::click(button, {10, 5});
    EXPECT_TRUE(events.isEmpty());
    button.setEnabled(true);
    Pointer::moveTo(button, {11, 5});
    expectHover();
}

TEST_F(FButtonPointer, hidingTheButtonEndsTheLitLook)
{
    Pointer::moveTo(button, {10, 5});
    button.hide();
    QApplication::processEvents();
    expectResting();
}

TEST_F(FButtonPointer, noKeyPressesIt)
{
    button.setFocus();
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return})
        QTest::keyClick(form.windowHandle(), key);
    EXPECT_TRUE(events.isEmpty());
    expectResting();
}

} // namespace vistrel
