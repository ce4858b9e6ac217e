#include "controls/check_button/coolradiobutton.h"
#include "tests/support/pointer.h"
#include "tests/support/printers.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr Color back = Color::rgb(240, 240, 200);
constexpr Color fore = Color::rgb(0, 90, 0);
constexpr Color hot = Color::rgb(200, 0, 0);
const QString solid(4, QChar(0x2588)); // Blocks show the caption's colour unmixed.
constexpr QPoint aside(90, 17);        // On the button, right of its caption.

/// A button of 100 x 18 pixels at (20, 20) of a form, seen through its events and its pixels. Its glyph's
/// box starts 1.67 pixels down.
class CoolradiobuttonPointer : public testing::Test
{
protected:
    CoolradiobuttonPointer()
    {
        form.setGeometry(100, 100, 200, 120);
        button.setObjectName(u"chkTest"_s);
        button.InitProperties();
        button.setBtnType(squareBtnType);
        button.setCaption(solid);
        button.setBackColor(back);
        button.setForeColor(fore);
        button.setHotColor(hot);
        button.move(20, 20);
        button.setSizeTwips(100 * 15, 18 * 15);
        form.show();
        moveAway();
        record();
    }

    void moveAway()
    {
        Pointer::moveTo(form, {180, 100});
        QTest::qWait(40);
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
        QObject::connect(&button, &Coolradiobutton::MouseDown, note("down"));
        QObject::connect(&button, &Coolradiobutton::MouseMove, note("move"));
        QObject::connect(&button, &Coolradiobutton::MouseUp, note("up"));
        QObject::connect(&button, &Coolradiobutton::MouseOut, [this] { events += u"out"_s; });
        QObject::connect(&button, &Coolradiobutton::Click,
                         [this] { events += button.Value() ? u"click on"_s : u"click off"_s; });
        QObject::connect(&button, &Coolradiobutton::propertyChanged,
                         [this](const QString& name) { events += name; });
    }

    /// A pixel of the glyph's inside where no mark is.
    QColor inside() const { return button.surface().image().pixelColor(2, 2 + 2 + 2); }

    bool captionShows(Color color) const
    {
        const QImage& image = button.surface().image();
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 16; x < image.width(); ++x) {
                if (image.pixelColor(x, y) == color.toQColor()) return true;
            }
        }
        return false;
    }

    QWidget form;
    Coolradiobutton button{&form};
    QStringList events;
};

const QColor white(255, 255, 255), beige(222, 215, 198), gray(184, 184, 184);

} // namespace

TEST_F(CoolradiobuttonPointer, takesItsHotLookUnderThePointerAndLosesItByItself)
{
    EXPECT_EQ(inside(), back.toQColor());
    EXPECT_TRUE(captionShows(fore));
    Pointer::moveTo(button, aside);
    EXPECT_EQ(inside(), white);
    EXPECT_TRUE(captionShows(hot));
    EXPECT_FALSE(captionShows(fore));
    QTest::qWait(40);
    EXPECT_EQ(inside(), white);
    moveAway();
    EXPECT_EQ(inside(), back.toQColor());
    EXPECT_FALSE(captionShows(hot));
    EXPECT_EQ(events, (QStringList{u"move 0 0 1350,255"_s, u"out"_s}));
}

TEST_F(CoolradiobuttonPointer, whileThePointerIsElsewhereNothingHappens)
{
    moveAway();
    Pointer::moveTo(form, {150, 100});
    QTest::qWait(40);
    EXPECT_TRUE(events.isEmpty());
}

TEST_F(CoolradiobuttonPointer, movesOverItsPartsReportTheirCorner)
{
    const int boxTopTwips = (18 * 15 - 240) / 2 + 40;
    Pointer::moveTo(button, {3, 10});
    Pointer::moveTo(button, {18, 10});
    EXPECT_EQ(events,
              (QStringList{u"move 0 0 0,%1"_s.arg(boxTopTwips), u"move 0 0 240,%1"_s.arg(boxTopTwips - 10)}));
}

TEST_F(CoolradiobuttonPointer, aClickIsRaisedBeforeTheValueFlips)
{
    Pointer::moveTo(button, aside);
    events.clear();
    Pointer::press(button, aside, Qt::LeftButton, Qt::ControlModifier);
    EXPECT_EQ(inside(), beige);
    Pointer::release(button, aside);
    EXPECT_TRUE(button.Value());
    EXPECT_EQ(events,
              (QStringList{u"down 1 2 1350,255"_s, u"up 1 0 1350,255"_s, u"click off"_s, u"Value"_s}));
    EXPECT_EQ(inside(), back.toQColor());
    Pointer::moveTo(button, aside - QPoint(1, 0));
    EXPECT_EQ(inside(), gray);

    events.clear();
    Pointer::click(button, {18, 10});
    EXPECT_FALSE(button.Value());
    EXPECT_EQ(events.at(1), u"down 1 0 30,105"_s); // From the caption's corner.
    EXPECT_TRUE(events.contains(u"click on"_s));
}

TEST_F(CoolradiobuttonPointer, otherButtonsPressItButDoNotToggle)
{
    Pointer::moveTo(button, aside);
    Pointer::press(button, aside, Qt::RightButton);
    EXPECT_EQ(inside(), beige);
    Pointer::moveTo(button, aside - QPoint(1, 0));
    EXPECT_EQ(inside(), white);
    Pointer::release(button, aside, Qt::RightButton);
    EXPECT_FALSE(button.Value());
}

TEST_F(CoolradiobuttonPointer, aHeldButtonDraggedOutGoesBackToNormalAndDoesNotToggle)
{
    Pointer::moveTo(button, aside);
    Pointer::press(button, aside);
    Pointer::moveTo(button, aside - QPoint(1, 0));
    EXPECT_EQ(inside(), beige);
    moveAway();
    EXPECT_EQ(inside(), back.toQColor());
    EXPECT_EQ(events.last(), u"out"_s);
    Pointer::release(form, {180, 100});
    EXPECT_FALSE(button.Value());
}

TEST_F(CoolradiobuttonPointer, theFarEdgesCountAsInside)
{
    Pointer::moveTo(button, aside);
    Pointer::press(button, aside);
    events.clear();
    Pointer::moveTo(button, {100, 18});
    QTest::qWait(40);
    EXPECT_EQ(events, QStringList{u"move 1 0 1500,270"_s});
    Pointer::moveTo(button, {101, 18});
    QTest::qWait(40);
    EXPECT_EQ(events.last(), u"out"_s);
    Pointer::release(button, {101, 18});
}

TEST_F(CoolradiobuttonPointer, roundButtonsDoNotGroup)
{
    button.setBtnType(1);
    button.setValue(true);
    Pointer::click(button, aside);
    EXPECT_FALSE(button.Value());
}

TEST_F(CoolradiobuttonPointer, disabledItTakesNoInput)
{
    button.setValue(true);
    button.setEnabled(false);
    events.clear();
    Pointer::click(button, aside);
    EXPECT_TRUE(events.isEmpty());
    EXPECT_EQ(inside(), beige);
    EXPECT_TRUE(captionShows(Color::rgb(161, 161, 146)));
    button.setEnabled(true);
    EXPECT_EQ(inside(), back.toQColor());
    EXPECT_TRUE(captionShows(fore));
}

TEST_F(CoolradiobuttonPointer, disabledUnderThePointerItLosesTheHotColour)
{
    Pointer::moveTo(button, aside);
    button.setEnabled(false);
    moveAway();
    EXPECT_EQ(events.last(), u"out"_s);
    EXPECT_TRUE(captionShows(Color::rgb(161, 161, 146)));
}

TEST_F(CoolradiobuttonPointer, keysAreReportedAndDoNothing)
{
    QObject::connect(&button, &Coolradiobutton::KeyDown, [&](qint16& KeyCode, qint16& Shift) {
        events += u"key down %1 %2"_s.arg(KeyCode).arg(Shift);
    });
    QObject::connect(&button, &Coolradiobutton::KeyPress,
                     [&](qint16& KeyAscii) { events += u"key press %1"_s.arg(KeyAscii); });
    QObject::connect(&button, &Coolradiobutton::KeyUp,
                     [&](qint16& KeyCode, qint16&) { events += u"key up %1"_s.arg(KeyCode); });
    button.setFocus();
    QTest::keyClick(form.windowHandle(), Qt::Key_Space);
    QTest::keyClick(form.windowHandle(), Qt::Key_Return);
    EXPECT_EQ(events, (QStringList{u"key down 32 0"_s, u"key press 32"_s, u"key up 32"_s, u"key down 13 0"_s,
                                   u"key press 13"_s, u"key up 13"_s}));
    EXPECT_FALSE(button.Value());
}

TEST_F(CoolradiobuttonPointer, theUnderlineIsOptional)
{
    button.setCaption(u"     "_s);
    Pointer::moveTo(button, aside);
    EXPECT_TRUE(captionShows(hot));
    moveAway();
    EXPECT_FALSE(captionShows(fore));
    button.setHotUnderLine(false);
    Pointer::moveTo(button, aside);
    EXPECT_FALSE(captionShows(hot));
}

} // namespace vistrel
