#include "controls/slider/cpv_slider.h"
#include "controls/value_tip/frm_valuetips.h"
#include "tests/support/pointer.h"
#include "tests/support/printers.h"

#include <QDialog>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

/// The program's tip, if it is there.
frmValuetips* tip()
{
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (auto* found = qobject_cast<frmValuetips*>(window)) return found;
    }
    return nullptr;
}

/// A horizontal slider of 100 x 16 pixels at (30, 50) of a form, its thumb 16 pixels wide: the track is 84.
class CpvSliderDrag : public testing::Test
{
protected:
    CpvSliderDrag()
    {
        form.setGeometry(100, 100, 200, 150);
        slider.InitProperties();
        slider.setOrientation(horizontalOrientation);
        slider.move(30, 50);
        slider.setSizeTwips(1500, 240);
        form.show();
        form.activateWindow();
        QApplication::processEvents();
        record();
    }

    void record()
    {
        const auto note = [this](const char* event) {
            return [this, event] { events += QString::fromLatin1(event); };
        };
        QObject::connect(&slider, &cpvSlider::Click, note("click"));
        QObject::connect(&slider, &cpvSlider::ValueChanged, note("changed"));
        QObject::connect(&slider, &cpvSlider::ArrivedFirst, note("first"));
        QObject::connect(&slider, &cpvSlider::ArrivedLast, note("last"));
        QObject::connect(&slider, &cpvSlider::MouseDown,
                         [this](qint16& Shift) { events += u"down %1"_s.arg(Shift); });
        QObject::connect(&slider, &cpvSlider::MouseUp,
                         [this](qint16& Shift) { events += u"up %1"_s.arg(Shift); });
    }

    void grab(QPoint at)
    {
        Pointer::moveTo(slider, at);
        Pointer::press(slider, at);
    }

    QWidget form;
    cpvSlider slider{&form};
    QStringList events;
};

} // namespace

TEST_F(CpvSliderDrag, theThumbMovesInWholeStepsUnderThePointerAndStopsAtTheEnds)
{
    grab({3, 8});
    Pointer::moveTo(slider, {24, 8}); // 21 of 84: 2.5 of 10.
    EXPECT_EQ(slider.Value(), 2);
    EXPECT_FLOAT_EQ(static_cast<float>(slider.thumb().left()), 16.8F);
    Pointer::moveTo(slider, {160, 60});
    EXPECT_EQ(slider.thumb().left(), 84);
    Pointer::moveTo(slider, {150, 90});
    Pointer::moveTo(slider, {-25, 8});
    EXPECT_EQ(slider.Value(), 0);
    Pointer::release(slider, {-25, 8});
    EXPECT_EQ(events, (QStringList{u"down 0"_s, u"changed"_s, u"changed"_s, u"last"_s, u"changed"_s,
                                   u"first"_s, u"up 0"_s}));
}

TEST_F(CpvSliderDrag, aReleaseOverTheThumbIsAClickEvenWithoutADrag)
{
    Pointer::click(slider, {15, 15});
    EXPECT_EQ(events, (QStringList{u"down 0"_s, u"click"_s, u"up 0"_s}));
    events.clear();
    slider.setEnabled(false);
    Pointer::click(slider, {0, 0});
    EXPECT_EQ(events, QStringList{u"click"_s});
}

TEST_F(CpvSliderDrag, onlyTheLeftButtonOnTheThumbDragsAndAnyReleaseEndsIt)
{
    Pointer::click(slider, {16, 8});
    Pointer::press(slider, {8, 8}, Qt::RightButton);
    Pointer::moveTo(slider, {60, 8});
    Pointer::release(slider, {60, 8}, Qt::RightButton);
    EXPECT_TRUE(events.isEmpty());
    grab({8, 8});
    Pointer::press(slider, {8, 8}, Qt::RightButton);
    Pointer::release(slider, {8, 8}, Qt::RightButton, Qt::ControlModifier);
    Pointer::moveTo(slider, {70, 8});
    EXPECT_EQ(slider.Value(), 0);
    Pointer::release(slider, {70, 8});
    EXPECT_EQ(events, (QStringList{u"down 0"_s, u"up 2"_s}));
}

TEST_F(CpvSliderDrag, aVerticalSliderHasItsMaximumAtTheTop)
{
    slider.setOrientation(verticalOrientation);
    slider.setSizeTwips(240, 1500);
    ASSERT_EQ(slider.thumb().top(), 84);
    grab({8, 90});
    Pointer::moveTo(slider, {70, 48});
    EXPECT_EQ(slider.Value(), 5);
    EXPECT_EQ(slider.thumb(), QRectF(0, 42, 16, 16));
    ASSERT_NE(tip(), nullptr);
    EXPECT_EQ(tip()->x() + tip()->width(), slider.mapToGlobal(QPoint()).x() - 2);
    Pointer::release(slider, {70, 48});
}

TEST_F(CpvSliderDrag, theTipShowsTheValueBesideTheThumbAndGoesWithTheButton)
{
    EXPECT_EQ(tip(), nullptr);
    grab({8, 8});
    ASSERT_NE(tip(), nullptr);
    EXPECT_TRUE(tip()->isVisible());
    EXPECT_EQ(tip()->findChild<QLabel*>()->text(), u"0"_s);
    EXPECT_TRUE(form.isActiveWindow());
    Pointer::moveTo(slider, {50, 8});
    EXPECT_EQ(tip()->findChild<QLabel*>()->text(), u"5"_s);
    const QPoint thumbAt = slider.mapToGlobal(slider.thumb().topLeft().toPoint());
    EXPECT_EQ(tip()->y() + tip()->height(), thumbAt.y() - 2);
    EXPECT_NEAR(tip()->x() + tip()->width() / 2.0, thumbAt.x() + 8, 1);
    Pointer::release(slider, {50, 8});
    EXPECT_EQ(tip(), nullptr);
    slider.setShowValueTip(false);
    grab({50, 8});
    EXPECT_EQ(tip(), nullptr);
    Pointer::release(slider, {50, 8});
}

TEST_F(CpvSliderDrag, aMessageBoxThatTakesTheReleaseEndsTheDrag)
{
    grab({8, 8});
    QDialog box;
    box.setModal(true);
    box.show();
    QApplication::processEvents();
    EXPECT_EQ(events, (QStringList{u"down 0"_s, u"up 0"_s}));
    EXPECT_EQ(tip(), nullptr);
    box.close();
    Pointer::moveTo(slider, {50, 8});
    EXPECT_EQ(slider.Value(), 0);
}

TEST_F(CpvSliderDrag, keysTheWheelAndADragWithoutTrackDoNothing)
{
    slider.setMin(3);
    events.clear();
    slider.setFocus();
    for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_PageUp, Qt::Key_End})
        QTest::keyClick(form.windowHandle(), key);
    Pointer::moveTo(slider, {50, 8});
    QWheelEvent wheel({50, 8}, slider.mapToGlobal(QPointF(50, 8)), {}, {0, 120}, Qt::NoButton, {},
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&slider, &wheel);
    EXPECT_TRUE(events.isEmpty());
    slider.setSizeTwips(240, 240);
    grab({8, 8});
    Pointer::moveTo(slider, {60, 8});
    EXPECT_EQ(slider.Value(), 3);
    Pointer::release(slider, {60, 8});
}

} // namespace vistrel
