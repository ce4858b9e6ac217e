#include "controls/flat_button/f_button.h"
#include "tests/support/pixels.h"
#include "tests/support/pointer.h"
#include "tests/support/printers.h"
#include "tests/support/recorded_events.h"

#include <QAccessible>

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
constexpr QPoint on(10, 5), outside(70, 5);

/// A button of 60 x 24 pixels at (20, 20) of a form, seen through its events and its pixels.
class FButtonPointer : public testing::Test
{
protected:
    FButtonPointer()
    {
        form.setGeometry(100, 100, 200, 120);
        button.InitProperties();
        button.setCaption(u"Go  "_s);
        button.setBackColor(back);
        button.setMouseOnColor(lit);
        button.setMouseDownColor(down);
        button.setStyle3DColor1(light);
        button.setStyle3DColor2(dark);
        button.move(20, 20);
        button.setSizeTwips(60 * 15, 24 * 15);
        form.show();
        Pointer::moveTo(form, {150, 100});
        recordMouse(button, events);
        QObject::connect(&button, &FButton::Click, [this] { events += u"click"_s; });
    }

    void pressOn(Qt::MouseButton mouseButton = Qt::LeftButton, Qt::KeyboardModifiers modifiers = {})
    {
        Pointer::moveTo(button, on);
        events.clear();
        Pointer::press(button, on, mouseButton, modifiers);
    }

    void expectLook(Color background, Color leftTop, Color rightBottom) const
    {
        EXPECT_EQ(pixel(button, {3, 3}), background.toQColor());
        for (const QPoint at : {QPoint(0, 10), QPoint(30, 0)})
            EXPECT_EQ(pixel(button, at), leftTop.toQColor());
        for (const QPoint at : {QPoint(59, 10), QPoint(30, 23)})
            EXPECT_EQ(pixel(button, at), rightBottom.toQColor());
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
    Pointer::moveTo(button, on);
    expectHover();
    Pointer::moveTo(button, {11, 5});
    expectHover();
    Pointer::moveTo(form, {150, 90});
    expectResting();
    EXPECT_EQ(events, (QStringList{u"move 0 0 150,75"_s, u"move 0 0 165,75"_s, u"move 0 0 1950,1050"_s}));
    Pointer::moveTo(button, on);
    Pointer::moveTo(button, {60, 5}); // One pixel past the last one: no move further out will follow.
    expectResting();
    Pointer::moveTo(button, on);
    button.hide();
    QApplication::processEvents();
    expectResting();
}

TEST_F(FButtonPointer, aClickSinksTheButtonAndIsRaisedLast)
{
    pressOn(Qt::LeftButton, Qt::ShiftModifier | Qt::AltModifier);
    expectPressed();
    Pointer::release(button, on);
    EXPECT_EQ(events, (QStringList{u"down 1 5 150,75"_s, u"up 1 0 150,75"_s, u"click"_s}));
    expectResting();
    Pointer::moveTo(button, {12, 5});
    expectHover();
}

TEST_F(FButtonPointer, aReleaseOutsideIsNoClick)
{
    pressOn();
    Pointer::moveTo(button, outside);
    expectResting();
    Pointer::release(button, outside);
    expectResting();
    EXPECT_EQ(events.sliced(1), (QStringList{u"move 1 0 1050,75"_s, u"up 1 0 1050,75"_s}));

    pressOn();
    Pointer::moveTo(button, outside);
    Pointer::moveTo(button, on);
    expectHover();
    Pointer::release(button, on);
    EXPECT_EQ(events.last(), u"click"_s) << "dragged back in";
}

TEST_F(FButtonPointer, theFarEdgesCountAsInside)
{
    pressOn();
    Pointer::moveTo(button, {60, 24});
    EXPECT_EQ(pixel(button, {3, 3}), down.toQColor());
    Pointer::moveTo(button, {61, 24});
    EXPECT_EQ(pixel(button, {3, 3}), back.toQColor());
    Pointer::release(button, {61, 24});
}

TEST_F(FButtonPointer, aPropertyChangeWhileLitTakesTheFrameAway)
{
    Pointer::moveTo(button, on);
    button.setStyle(1);
    expectLook(lit, lit, lit);
    button.setBackColor(down);
    expectLook(down, down, down);
}

TEST_F(FButtonPointer, aHandlerMayMoveThePointAndBlackStandsForTheBackground)
{
    button.setMouseOnColor({0});
    const auto connection =
        QObject::connect(&button, &FButton::MouseMove, [](qint16&, qint16&, float& X, float&) { X = -1; });
    Pointer::moveTo(button, on);
    expectResting();
    QObject::disconnect(connection);
    Pointer::moveTo(button, {11, 5});
    expectLook(back, light, dark);
}

TEST_F(FButtonPointer, nothingButTheLeftButtonAndAssistiveToolsClicksItAndOnlyWhileItIsEnabled)
{
    pressOn(Qt::RightButton);
    expectPressed();
    Pointer::release(button, on, Qt::RightButton);
    button.setFocus();
    QTest::keyClick(form.windowHandle(), Qt::Key_Space);
    EXPECT_FALSE(events.contains(u"click"_s));

    events.clear();
    QAccessibleInterface* seen = QAccessible::queryAccessibleInterface(&button);
    ASSERT_NE(seen, nullptr);
    EXPECT_EQ(seen->role(), QAccessible::Button);
    EXPECT_EQ(seen->text(QAccessible::Name), u"Go"_s);
    seen->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    button.setEnabled(false);
    seen->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    Pointer::click(button, on);
    EXPECT_EQ(events, QStringList{u"click"_s});
}

} // namespace vistrel
