#include "controls/text_line/text_line.h"
#include "tests/support/pointer.h"
#include "tests/support/printers.h"

#include <QInputMethodEvent>
#include <QLineEdit>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

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
        Pointer::moveTo(form, {180, 110});
        QObject::connect(&line, &TextLine::MouseOver, [this] { events += u"over"_s; });
        QObject::connect(&line, &TextLine::MouseOut, [this] { events += u"out"_s; });
    }

    void recordMouse()
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
        QObject::connect(&line, &TextLine::MouseDown, note("down"));
        QObject::connect(&line, &TextLine::MouseMove, note("move"));
        QObject::connect(&line, &TextLine::MouseUp, note("up"));
        QObject::connect(&line, &TextLine::Click, [this] { events += u"click"_s; });
        QObject::connect(&line, &TextLine::DblClick, [this] { events += u"double"_s; });
    }

    void recordKeys()
    {
        QObject::connect(&line, &TextLine::KeyDown, [this](qint16& KeyCode, qint16& Shift) {
            events += u"down %1 %2"_s.arg(KeyCode).arg(Shift);
        });
        QObject::connect(&line, &TextLine::KeyPress,
                         [this](qint16& KeyAscii) { events += u"press %1"_s.arg(KeyAscii); });
        QObject::connect(&line, &TextLine::KeyUp,
                         [this](qint16& KeyCode, qint16&) { events += u"up %1"_s.arg(KeyCode); });
        QObject::connect(&line, &TextLine::Change, [this] { events += u"change"_s; });
    }

    void type(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(form.windowHandle(), key, modifiers);
    }

    bool frameIsShown() const
    {
        return line.surface().image().pixelColor(50, 0) == Color{0x8496A5}.toQColor();
    }

    QStringList taken() { return std::exchange(events, {}); }

    QStringList events;
    QWidget form;
    TextLine line{&form};
    TextLine other{&form};
};

using Events = QStringList;

} // namespace

TEST_F(TextLineEvents, theFrameIsHiddenWhileThePointerIsOverTheField)
{
    EXPECT_TRUE(frameIsShown());
    Pointer::moveTo(line, {50, 8});
    Pointer::moveTo(line, {51, 8});
    EXPECT_FALSE(frameIsShown());
    Pointer::moveTo(form, {180, 110});
    EXPECT_TRUE(frameIsShown());
    EXPECT_EQ(events, (Events{u"over"_s, u"out"_s}));
}

TEST_F(TextLineEvents, theFrameStaysHiddenWhileTheFieldHasTheFocus)
{
    line.setFocus();
    EXPECT_EQ(taken(), Events{u"over"_s});
    EXPECT_FALSE(frameIsShown());
    Pointer::moveTo(line, {50, 8});
    Pointer::moveTo(form, {180, 110});
    EXPECT_FALSE(frameIsShown());
    EXPECT_TRUE(events.isEmpty());
    other.setFocus();
    EXPECT_TRUE(frameIsShown());
    EXPECT_EQ(taken(), Events{u"out"_s});
}

TEST_F(TextLineEvents, losingTheFocusUnderThePointerShowsTheFrameUntilTheNextMove)
{
    Pointer::moveTo(line, {50, 8});
    line.setFocus();
    other.setFocus();
    EXPECT_EQ(taken(), (Events{u"over"_s, u"over"_s, u"out"_s}));
    EXPECT_TRUE(frameIsShown());
    Pointer::moveTo(line, {52, 8});
    EXPECT_FALSE(frameIsShown());
}

TEST_F(TextLineEvents, withoutHoverEffectTheFrameStaysAndTheEventsCome)
{
    line.setHoverEffect(false);
    Pointer::moveTo(line, {50, 8});
    EXPECT_TRUE(frameIsShown());
    Pointer::moveTo(form, {180, 110});
    EXPECT_EQ(events, (Events{u"over"_s, u"out"_s}));
}

TEST_F(TextLineEvents, aControlMadeAtRunTimeKeepsItsFrame)
{
    line.InitProperties();
    Pointer::moveTo(line, {50, 8});
    EXPECT_TRUE(frameIsShown());
    Pointer::moveTo(form, {180, 110});
    line.setHostMode(ControlWidget::HostMode::Design);
    line.InitProperties();
    Pointer::moveTo(line, {50, 8});
    EXPECT_FALSE(frameIsShown());
}

TEST_F(TextLineEvents, mouseEventsPassOutInTwipsOfTheField)
{
    recordMouse();
    Pointer::moveTo(line, {11, 12});
    Pointer::press(line, {11, 12}, Qt::LeftButton, Qt::ControlModifier);
    Pointer::release(line, {11, 12});
    EXPECT_EQ(events, (Events{u"move 0 0 150,150"_s, u"over"_s, u"over"_s, u"down 1 2 150,150"_s,
                              u"up 1 0 150,150"_s, u"click"_s}));
}

TEST_F(TextLineEvents, theSecondPressOfADoubleClickIsADblClick)
{
    recordMouse();
    line.setFocus();
    QTest::mouseDClick(form.windowHandle(), Qt::LeftButton, {}, QPoint(31, 28));
    EXPECT_EQ(events.filter(QRegularExpression(u"^(down|up|click|double)"_s)).size(), 5);
    EXPECT_EQ(events.sliced(events.size() - 2), (Events{u"double"_s, u"up 1 0 150,90"_s}));
}

TEST_F(TextLineEvents, keysPassOutBeforeTheyAct)
{
    line.setFocus();
    taken();
    recordKeys();
    type(Qt::Key_A);
    EXPECT_EQ(taken(), (Events{u"down 65 0"_s, u"press 97"_s, u"change"_s, u"up 65"_s}));
    type(Qt::Key_End, Qt::ShiftModifier);
    EXPECT_TRUE(taken().contains(u"down 35 1"_s));
    type(Qt::Key_Home);
    EXPECT_EQ(taken(), (Events{u"down 36 0"_s, u"up 36"_s}));
    type(Qt::Key_Delete);
    EXPECT_EQ(taken(), (Events{u"down 46 0"_s, u"change"_s, u"up 46"_s}));
    type(Qt::Key_Return);
    EXPECT_EQ(taken(), (Events{u"down 13 0"_s, u"press 13"_s, u"up 13"_s}));
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
        type(key);
    EXPECT_EQ(line.Text(), u"\u00C4b"_s);

    QObject::connect(&line, &TextLine::KeyDown, [](qint16& KeyCode, qint16&) {
        if (KeyCode == 8) KeyCode = 0;
        if (KeyCode == 40) KeyCode = 36;
    });
    type(Qt::Key_Backspace);
    EXPECT_EQ(line.Text(), u"\u00C4b"_s);
    type(Qt::Key_Down);
    EXPECT_EQ(line.SelStart(), 0);
}

TEST_F(TextLineEvents, inputMethodsAreFilteredToo)
{
    line.setFocus();
    QObject::connect(&line, &TextLine::KeyPress, [](qint16& KeyAscii) {
        if (KeyAscii < '0' || KeyAscii > '9') KeyAscii = 0;
    });
    QInputMethodEvent event;
    event.setCommitString(u"1x2"_s);
    QApplication::sendEvent(line.findChild<QLineEdit*>(), &event);
    EXPECT_EQ(line.Text(), u"12"_s);
}

TEST_F(TextLineEvents, theFormHearsOfTheFocusOfTheWholeControl)
{
    QObject::connect(&line, &TextLine::GotFocus, [this] { events += u"got"_s; });
    QObject::connect(&line, &TextLine::Validate, [this] { events += u"validate"_s; });
    QObject::connect(&line, &TextLine::LostFocus, [this] { events += u"lost"_s; });
    QObject::connect(&other, &TextLine::GotFocus, [this] { events += u"other"_s; });
    line.setFocus();
    type(Qt::Key_Tab);
    EXPECT_EQ(events.filter(QRegularExpression(u"^[^o]|other"_s)),
              (Events{u"got"_s, u"validate"_s, u"lost"_s, u"other"_s}));
}

} // namespace vistrel
