#include "controls/text_line/text_line.h"
#include "tests/support/pixels.h"
#include "tests/support/pointer.h"
#include "tests/support/printers.h"
#include "tests/support/recorded_events.h"

#include <QInputMethodEvent>
#include <QLineEdit>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr QPoint onField(50, 8);
using Events = QStringList;

/// Two text lines on a form, the first one watched.
class TextLineEvents : public testing::Test
{
protected:
    TextLineEvents()
    {
        form.setGeometry(100, 100, 200, 120);
        line.ReadProperties({});
        line.move(20, 20);
        other.move(20, 60);
        form.show();
        form.activateWindow();
        other.setFocus();
        moveAway();
        QObject::connect(&line, &TextLine::MouseOver, [this] { events += u"over"_s; });
        QObject::connect(&line, &TextLine::MouseOut, [this] { events += u"out"_s; });
        QObject::connect(&line, &TextLine::Click, [this] { events += u"click"_s; });
        QObject::connect(&line, &TextLine::DblClick, [this] { events += u"double"_s; });
        QObject::connect(&line, &TextLine::Change, [this] { events += u"change"_s; });
    }

    void moveAway() { Pointer::moveTo(form, {180, 110}); }

    Events eventsOf(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        events.clear();
        QTest::keyClick(form.windowHandle(), key, modifiers);
        return events;
    }

    bool frameIsShown() const { return pixel(line, {50, 0}) == Color{0x8496A5}.toQColor(); }

    QStringList events;
    QWidget form;
    TextLine line{&form};
    TextLine other{&form};
};

} // namespace

TEST_F(TextLineEvents, theFrameIsHiddenWhileThePointerIsOverTheField)
{
    EXPECT_TRUE(frameIsShown());
    Pointer::moveTo(line, onField);
    Pointer::moveTo(line, {51, 8});
    EXPECT_FALSE(frameIsShown());
    moveAway();
    EXPECT_TRUE(frameIsShown());
    line.setHoverEffect(false);
    Pointer::moveTo(line, onField);
    EXPECT_TRUE(frameIsShown());
    moveAway();
    EXPECT_EQ(events, (Events{u"over"_s, u"out"_s, u"over"_s, u"out"_s}));
}

TEST_F(TextLineEvents, theFrameStaysHiddenWhileTheFieldHasTheFocus)
{
    line.setFocus();
    EXPECT_EQ(events, Events{u"over"_s});
    Pointer::moveTo(line, onField);
    moveAway();
    EXPECT_FALSE(frameIsShown());
    other.setFocus();
    EXPECT_TRUE(frameIsShown());
    EXPECT_EQ(events, (Events{u"over"_s, u"out"_s}));
}

TEST_F(TextLineEvents, losingTheFocusUnderThePointerShowsTheFrameUntilTheNextMove)
{
    Pointer::moveTo(line, onField);
    line.setFocus();
    other.setFocus();
    EXPECT_EQ(events, (Events{u"over"_s, u"over"_s, u"out"_s}));
    EXPECT_TRUE(frameIsShown());
    Pointer::moveTo(line, {52, 8});
    EXPECT_FALSE(frameIsShown());
}

TEST_F(TextLineEvents, aControlMadeAtRunTimeKeepsItsFrame)
{
    line.InitProperties();
    Pointer::moveTo(line, onField);
    EXPECT_TRUE(frameIsShown());
    moveAway();
    line.setHostMode(ControlWidget::HostMode::Design);
    line.InitProperties();
    Pointer::moveTo(line, onField);
    EXPECT_FALSE(frameIsShown());
}

TEST_F(TextLineEvents, mouseEventsPassOutInTwipsOfTheField)
{
    recordMouse(line, events);
    Pointer::moveTo(line, {11, 12});
    Pointer::press(line, {11, 12}, Qt::LeftButton, Qt::ControlModifier);
    Pointer::release(line, {11, 12});
    EXPECT_EQ(events, (Events{u"move 0 0 150,150"_s, u"over"_s, u"over"_s, u"down 1 2 150,150"_s,
                              u"up 1 0 150,150"_s, u"click"_s}));
    events.clear();
    QTest::mouseDClick(form.windowHandle(), Qt::LeftButton, {}, QPoint(31, 28));
    EXPECT_EQ(events.count(u"click"_s), 1);
    EXPECT_EQ(events.sliced(events.size() - 2), (Events{u"double"_s, u"up 1 0 150,90"_s}));
}

TEST_F(TextLineEvents, keysPassOutBeforeTheyAct)
{
    line.setFocus();
    recordKeys(line, events);
    EXPECT_EQ(eventsOf(Qt::Key_A),
              (Events{u"key down 65 0"_s, u"key press 97"_s, u"change"_s, u"key up 65"_s}));
    EXPECT_TRUE(eventsOf(Qt::Key_End, Qt::ShiftModifier).contains(u"key down 35 1"_s));
    EXPECT_EQ(eventsOf(Qt::Key_Home), (Events{u"key down 36 0"_s, u"key up 36"_s}));
    EXPECT_EQ(eventsOf(Qt::Key_Delete), (Events{u"key down 46 0"_s, u"change"_s, u"key up 46"_s}));
    EXPECT_EQ(eventsOf(Qt::Key_Return), (Events{u"key down 13 0"_s, u"key press 13"_s, u"key up 13"_s}));
}

TEST_F(TextLineEvents, aHandlerCanSwallowOrExchangeWhatIsTyped)
{
    line.setFocus();
    QObject::connect(&line, &TextLine::KeyPress, [](qint16& KeyAscii) {
        if (KeyAscii == 'x') KeyAscii = 0;
        if (KeyAscii == 'a') KeyAscii = 0xC4;
        if (KeyAscii == '-') KeyAscii = 8;
    });
    for (const Qt::Key key : {Qt::Key_X, Qt::Key_A, Qt::Key_B, Qt::Key_C, Qt::Key_Minus})
        eventsOf(key);
    EXPECT_EQ(line.Text(), u"\u00C4b"_s);

    QObject::connect(&line, &TextLine::KeyDown, [](qint16& KeyCode, qint16&) {
        if (KeyCode == 8 || KeyCode == 66) KeyCode = 0;
        if (KeyCode == 40) KeyCode = 36;
    });
    for (const Qt::Key key : {Qt::Key_Backspace, Qt::Key_B, Qt::Key_Down})
        eventsOf(key);
    EXPECT_EQ(line.SelStart(), 0);

    QInputMethodEvent event;
    event.setCommitString(u"1x2"_s);
    QApplication::sendEvent(line.findChild<QLineEdit*>(), &event);
    EXPECT_EQ(line.Text(), u"12\u00C4b"_s);
}

TEST_F(TextLineEvents, theFormHearsOfTheFocusOfTheWholeControl)
{
    QObject::connect(&line, &TextLine::GotFocus, [this] { events += u"got"_s; });
    QObject::connect(&line, &TextLine::Validate, [this] { events += u"validate"_s; });
    QObject::connect(&line, &TextLine::LostFocus, [this] { events += u"lost"_s; });
    QObject::connect(&other, &TextLine::GotFocus, [this] { events += u"other"_s; });
    line.setFocus();
    EXPECT_EQ(eventsOf(Qt::Key_Tab).filter(QRegularExpression(u"^[^o]|other"_s)),
              (Events{u"validate"_s, u"lost"_s, u"other"_s}));
}

} // namespace vistrel
