#include "controls/check_button/coolradiobutton.h"
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

constexpr Color back = Color::rgb(240, 240, 200);
constexpr Color fore = Color::rgb(0, 90, 0);
constexpr Color hot = Color::rgb(200, 0, 0);
constexpr Color pale = Color::rgb(161, 161, 146);
const QColor white(255, 255, 255), beige(222, 215, 198), gray(184, 184, 184);
constexpr QPoint aside(90, 17); // On the button, right of its caption.

/// A button of 100 x 18 pixels at (20, 20) of a form, seen through its events and its pixels. Its glyph's
/// box starts 1.67 pixels down.
class CoolradiobuttonTest : public testing::Test
{
protected:
    CoolradiobuttonTest()
    {
        form.setGeometry(100, 100, 200, 120);
        button.setObjectName(u"chkTest"_s);
        button.InitProperties();
        button.setBtnType(squareBtnType);
        button.setCaption(QString(4, QChar(0x2588))); // Blocks show the caption's colour unmixed.
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
        recordMouse(button, events);
        QObject::connect(&button, &Coolradiobutton::MouseOut, [this] { events += u"out"_s; });
        QObject::connect(&button, &Coolradiobutton::Click,
                         [this] { events += button.Value() ? u"click on"_s : u"click off"_s; });
        QObject::connect(&button, &Coolradiobutton::propertyChanged,
                         [this](const QString& name) { events += name; });
    }

    /// A pixel of the glyph's inside where no mark is.
    QColor inside() const { return pixel(button, {2, 6}); }

    bool captionShows(Color color) const
    {
        const QImage& image = button.surface().image();
        return !boundsOf(image, image.rect().adjusted(16, 0, 0, 0), [&](QColor at) {
                    return at == color.toQColor();
                }).isEmpty();
    }

    QWidget form;
    Coolradiobutton button{&form};
    QStringList events;
};

} // namespace

TEST(CheckLayout, movesTheBoxBelowTheMiddleAndKnowsThePartUnderAPoint)
{
    const CheckLayout layout = layoutCheckButton(255, {600, 150});
    EXPECT_EQ(layout.p, QRectF(0, 47.5, 240, 240));
    EXPECT_EQ(layout.lbl, QRectF(240, 37.5, 600, 150));
    EXPECT_EQ(layout.partAt({239.5, 47.5}), layout.p);
    EXPECT_EQ(layout.partAt({240, 47.5}), layout.lbl);
    for (const QPointF beside : {QPointF(0, 47), QPointF(840, 40), QPointF(300, 187.5)})
        EXPECT_TRUE(layout.partAt(beside).isEmpty());
}

TEST_F(CoolradiobuttonTest, takesItsHotLookUnderThePointerAndLosesItByItself)
{
    Pointer::moveTo(form, {150, 100});
    QTest::qWait(40);
    EXPECT_TRUE(captionShows(fore));
    Pointer::moveTo(button, aside);
    QTest::qWait(40);
    EXPECT_EQ(inside(), white);
    EXPECT_TRUE(captionShows(hot));
    EXPECT_FALSE(captionShows(fore));
    moveAway();
    EXPECT_EQ(inside(), back.toQColor());
    EXPECT_FALSE(captionShows(hot));
    EXPECT_EQ(events, (QStringList{u"move 0 0 1350,255"_s, u"out"_s}));
}

TEST_F(CoolradiobuttonTest, theUnderlineIsOptional)
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

TEST_F(CoolradiobuttonTest, movesOverItsPartsReportTheirCorner)
{
    const int boxTopTwips = (18 * 15 - 240) / 2 + 40;
    Pointer::moveTo(button, {3, 10});
    Pointer::moveTo(button, {18, 10});
    EXPECT_EQ(events,
              (QStringList{u"move 0 0 0,%1"_s.arg(boxTopTwips), u"move 0 0 240,%1"_s.arg(boxTopTwips - 10)}));
}

TEST_F(CoolradiobuttonTest, aClickIsRaisedBeforeTheValueFlips)
{
    Pointer::moveTo(button, aside);
    events.clear();
    Pointer::press(button, aside, Qt::LeftButton, Qt::ControlModifier);
    EXPECT_EQ(inside(), beige);
    Pointer::release(button, aside);
    EXPECT_EQ(events,
              (QStringList{u"down 1 2 1350,255"_s, u"up 1 0 1350,255"_s, u"click off"_s, u"Value"_s}));
    EXPECT_EQ(inside(), back.toQColor());
    Pointer::moveTo(button, aside - QPoint(1, 0));
    EXPECT_EQ(inside(), gray);

    button.setBtnType(1);
    events.clear();
    Pointer::click(button, {18, 10});
    EXPECT_FALSE(button.Value()) << "round ones flip back, too";
    EXPECT_EQ(events.at(1), u"down 1 0 30,105"_s); // From the caption's corner.
    EXPECT_TRUE(events.contains(u"click on"_s));
}

TEST_F(CoolradiobuttonTest, otherButtonsAndReleasesOutsideDoNotToggle)
{
    Pointer::moveTo(button, aside);
    Pointer::press(button, aside, Qt::RightButton);
    EXPECT_EQ(inside(), beige);
    Pointer::moveTo(button, aside - QPoint(1, 0));
    EXPECT_EQ(inside(), white);
    Pointer::release(button, aside, Qt::RightButton);

    Pointer::press(button, aside);
    Pointer::moveTo(button, aside);
    EXPECT_EQ(inside(), beige);
    moveAway();
    EXPECT_EQ(inside(), back.toQColor());
    EXPECT_EQ(events.last(), u"out"_s);
    Pointer::release(form, {180, 100});
    EXPECT_FALSE(button.Value());
}

TEST_F(CoolradiobuttonTest, theFarEdgesCountAsInside)
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

TEST_F(CoolradiobuttonTest, disabledItTakesNoInputAndLosesTheHotColour)
{
    button.setValue(true);
    button.setEnabled(false);
    events.clear();
    Pointer::click(button, aside);
    EXPECT_TRUE(events.isEmpty());
    EXPECT_EQ(inside(), beige);
    EXPECT_TRUE(captionShows(pale));
    button.setEnabled(true);
    EXPECT_EQ(inside(), back.toQColor());
    EXPECT_TRUE(captionShows(fore));

    Pointer::moveTo(button, aside - QPoint(1, 0));
    button.setEnabled(false);
    moveAway();
    EXPECT_EQ(events.last(), u"out"_s);
    EXPECT_TRUE(captionShows(pale));
}

TEST_F(CoolradiobuttonTest, keysAreReportedAndDoNothing)
{
    recordKeys(button, events);
    button.setFocus();
    QTest::keyClick(form.windowHandle(), Qt::Key_Space);
    EXPECT_EQ(events, (QStringList{u"key down 32 0"_s, u"key press 32"_s, u"key up 32"_s}));
}

TEST_F(CoolradiobuttonTest, assistiveToolsSeeACheckBoxAndCanToggleIt)
{
    button.setCaption(u"Create thumbnail  "_s);
    QAccessibleInterface* seen = QAccessible::queryAccessibleInterface(&button);
    ASSERT_NE(seen, nullptr);
    EXPECT_EQ(seen->role(), QAccessible::CheckBox);
    EXPECT_EQ(seen->text(QAccessible::Name), u"Create thumbnail"_s);
    EXPECT_FALSE(seen->state().checked);
    seen->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(events.sliced(1), (QStringList{u"click off"_s, u"Value"_s}));
    EXPECT_TRUE(seen->state().checked);
}

} // namespace vistrel
