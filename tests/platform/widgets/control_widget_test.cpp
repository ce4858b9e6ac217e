#include "platform/widgets/control_widget.h"
#include "tests/support/pointer.h"
#include "tests/support/printers.h"

#include <QLineEdit>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

/// A control that notes what its surface reports.
class Probe : public ControlWidget
{
public:
    using ControlWidget::ControlWidget;
    using ControlWidget::drawingSurface;
    using ControlWidget::setSurfaceEnabled;

    void InitProperties() override {}
    void ReadProperties(const PropertyBag&) override {}
    void WriteProperties(PropertyBag&) const override {}

    QStringList taken() { return std::exchange(events, {}); }

    QStringList events;
    bool swallowsKeys = false;

protected:
    void surfaceMouseDown(qint16 Button, qint16, float X, float Y) override { note(u"down"_s, Button, X, Y); }
    void surfaceMouseMove(qint16 Button, qint16, float X, float Y) override { note(u"move"_s, Button, X, Y); }
    void surfaceMouseUp(qint16 Button, qint16, float X, float Y) override { note(u"up"_s, Button, X, Y); }
    void surfaceMouseLeave(qint16 Shift, float X, float Y) override { note(u"leave"_s, Shift, X, Y); }
    void surfaceClick() override { events += u"click"_s; }
    void surfaceKeyDown(qint16& KeyCode, qint16&) override
    {
        events += u"key %1"_s.arg(KeyCode);
        if (swallowsKeys) KeyCode = 0;
    }
    void surfaceKeyPress(qint16& KeyAscii) override { events += u"char %1"_s.arg(KeyAscii); }
    void surfaceKeyUp(qint16& KeyCode, qint16&) override { events += u"keyup %1"_s.arg(KeyCode); }
    void surfaceResize() override
    {
        events += u"resize %1x%2"_s.arg(surface().sizePx().width()).arg(surface().sizePx().height());
    }

private:
    void note(const QString& event, qint16 code, float x, float y)
    {
        events +=
            u"%1 %2 %3,%4"_s.arg(event).arg(code).arg(static_cast<double>(x)).arg(static_cast<double>(y));
    }
};

class Control : public testing::Test
{
protected:
    Control()
    {
        form.setGeometry(100, 100, 200, 120);
        probe.setGeometry(20, 20, 40, 30);
        form.show();
        form.activateWindow();
        Pointer::moveTo(form, {150, 100});
        probe.taken();
    }

    QWidget form;
    Probe probe{ScaleMode::Pixels, &form};
};

} // namespace

TEST_F(Control, clicksAreLeftPressesAndReleasesOverItWhileItIsEnabled)
{
    Pointer::click(probe, {5, 6});
    EXPECT_EQ(probe.taken(), (QStringList{u"move 0 5,6"_s, u"down 1 5,6"_s, u"up 1 5,6"_s, u"click"_s}));
    Pointer::click(probe, {5, 6}, Qt::MiddleButton);
    EXPECT_FALSE(probe.taken().contains(u"click"_s));
    QTest::mouseDClick(form.windowHandle(), Qt::LeftButton, {}, QPoint(25, 26));
    EXPECT_EQ(probe.taken().count(u"click"_s), 2);
    probe.setSurfaceEnabled(false);
    Pointer::click(probe, {5, 6});
    EXPECT_TRUE(probe.taken().isEmpty());
}

TEST_F(Control, dragsReportPointsOutsideAndTheLeaveComesAfterTheRelease)
{
    Pointer::moveTo(probe, {5, 6});
    Pointer::press(probe, {5, 6});
    probe.taken();
    Pointer::moveTo(probe, {-10, 50});
    Pointer::release(probe, {-10, 50});
    QApplication::processEvents();
    EXPECT_EQ(probe.taken(), (QStringList{u"move 1 -10,50"_s, u"up 1 -10,50"_s, u"leave 0 -10,50"_s}));
}

TEST_F(Control, aCoveredPointerCountsAsOutside)
{
    Pointer::moveTo(probe, {5, 6});
    probe.taken();
    QWidget cover(&form);
    cover.setGeometry(probe.geometry());
    cover.show();
    Pointer::moveTo(probe, {6, 6});
    EXPECT_EQ(probe.taken(), QStringList{u"leave 0 -1,-1"_s});
}

TEST_F(Control, keysComeAsCodesAndCanBeSwallowed)
{
    probe.setFocusPolicy(Qt::StrongFocus);
    probe.setFocus();
    QTest::keyClick(form.windowHandle(), Qt::Key_A);
    EXPECT_EQ(probe.taken(), (QStringList{u"key 65"_s, u"char 97"_s, u"keyup 65"_s}));
    probe.swallowsKeys = true;
    QTest::keyClick(form.windowHandle(), Qt::Key_A);
    EXPECT_EQ(probe.taken(), (QStringList{u"key 65"_s, u"keyup 65"_s}));
}

TEST_F(Control, sizesInTwipsReachTheSurfaceAtOnceShownOrNot)
{
    probe.setSizeTwips(300, 452);
    EXPECT_EQ(probe.taken(), QStringList{u"resize 20x30"_s});
    EXPECT_EQ(probe.Width(), 300);
    EXPECT_EQ(probe.Height(), 450);
    probe.setSizeTwips(300, 450);
    EXPECT_TRUE(probe.taken().isEmpty());

    Probe hidden(ScaleMode::Twips);
    hidden.setWidth(600);
    EXPECT_EQ(hidden.surface().ScaleWidth(), 600);
}

TEST_F(Control, showsWhatItsSurfaceHolds)
{
    probe.drawingSurface().fillRectangle(3, 4, 3, 4, Color::rgb(255, 0, 0));
    const QImage shown = form.grab(probe.geometry()).toImage();
    EXPECT_EQ(shown.pixelColor(3, 4), QColor(255, 0, 0));
    EXPECT_EQ(shown.pixelColor(4, 4), QColor(212, 208, 200));
}

TEST_F(Control, focusEventsComeInOrderAndOnlyWithinTheWindow)
{
    Probe second(ScaleMode::Pixels, &form);
    second.show();
    QStringList events;
    for (Probe* control : {&probe, &second}) {
        const QString name = control == &probe ? u"first"_s : u"second"_s;
        QObject::connect(control, &Probe::GotFocus, [&events, name] { events += name + u" got"_s; });
        QObject::connect(control, &Probe::Validate, [&events, name] { events += name + u" validate"_s; });
        QObject::connect(control, &Probe::LostFocus, [&events, name] { events += name + u" lost"_s; });
        control->setFocusPolicy(Qt::StrongFocus);
    }
    probe.setFocus();
    second.setFocus();
    EXPECT_EQ(events, (QStringList{u"first got"_s, u"first validate"_s, u"first lost"_s, u"second got"_s}));

    events.clear();
    QLineEdit dialog;
    dialog.show();
    dialog.activateWindow();
    dialog.setFocus();
    QApplication::processEvents();
    dialog.close();
    form.activateWindow();
    QApplication::processEvents();
    EXPECT_TRUE(events.isEmpty()) << testing::PrintToString(events);
}

} // namespace vistrel
