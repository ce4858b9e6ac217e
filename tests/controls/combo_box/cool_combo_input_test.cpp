#include "controls/combo_box/button_pictures.h"
#include "controls/combo_box/cool_combo.h"
#include "tests/support/pointer.h"
#include "tests/support/printers.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QLineEdit>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr QPoint onButton(92, 8);
constexpr QPoint onText(20, 8);

/// A combo box of 100 x 17 pixels with three items, the second one selected, above an edit field.
class CoolComboInput : public testing::Test
{
protected:
    CoolComboInput()
    {
        form.setGeometry(100, 100, 200, 200);
        combo.InitProperties();
        for (const char* item : {"URL", "Number", "Manual"})
            combo.AddItem(QString::fromLatin1(item));
        combo.setListIndex(u"1"_s);
        combo.move(20, 20);
        combo.setSizeTwips(1500, 250);
        other.move(20, 80);
        other.setFocusPolicy(Qt::StrongFocus);
        form.show();
        form.activateWindow();
        other.setFocus();
        QApplication::processEvents();
        QObject::connect(&combo, &coolCombo::Click, [this] { events += u"click "_s + combo.Text(); });
    }

    QAbstractItemView* list() const { return box->view(); }
    void pick(int row)
    {
        Pointer::click(*list()->viewport(), list()->visualRect(list()->model()->index(row, 0)).center());
        QApplication::processEvents();
    }
    void key(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }
    void turnWheel()
    {
        QWheelEvent wheel(onText, combo.mapToGlobal(QPointF(onText)), {}, {0, -120}, Qt::NoButton, {},
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(box, &wheel);
    }

    QWidget form;
    coolCombo combo{&form};
    QLineEdit other{&form};
    QComboBox* box = combo.findChild<QComboBox*>(u"Combo1"_s);
    QStringList events;
};

} // namespace

TEST_F(CoolComboInput, theButtonOpensTheListAndKeepsItsUpArrowUntilAChoice)
{
    EXPECT_EQ(combo.ButtonIcon(), picUP());
    Pointer::click(combo, onButton);
    EXPECT_EQ(combo.ButtonIcon(), picDown());
    ASSERT_TRUE(list()->isVisible());
    EXPECT_EQ(list()->window()->pos(),
              combo.mapToGlobal(QPoint(0, combo.height() - 1))); // On the frame's line.
    EXPECT_EQ(list()->window()->width(), combo.width());
    pick(2);
    EXPECT_FALSE(list()->isVisible());
    EXPECT_EQ(combo.ButtonIcon(), picUP());
    EXPECT_EQ(combo.ListIndex(), u"2"_s);
    EXPECT_EQ(QApplication::focusWidget(), box);

    Pointer::click(combo, onText);
    EXPECT_EQ(combo.ButtonIcon(), picUP()) << "the text opens the list but leaves the button";
    pick(2);
    EXPECT_EQ(events, (QStringList{u"click Manual"_s, u"click Manual"_s})) << "the same item again";
}

TEST_F(CoolComboInput, escapeLeavesTheUpArrowUntilTheFocusGoes)
{
    Pointer::click(combo, onButton);
    key(Qt::Key_Escape);
    EXPECT_FALSE(list()->isVisible());
    EXPECT_EQ(combo.ButtonIcon(), picDown());
    EXPECT_TRUE(events.isEmpty());
    combo.setText(u"written"_s);
    other.setFocus();
    EXPECT_EQ(combo.ButtonIcon(), picUP());
    EXPECT_EQ(combo.Text(), u"Number"_s);
}

TEST_F(CoolComboInput, theClosedBoxFollowsKeysAndWithTheFocusTheWheel)
{
    turnWheel();
    EXPECT_TRUE(events.isEmpty());
    combo.setFocus();
    key(Qt::Key_Down);
    key(Qt::Key_Home);
    turnWheel();
    EXPECT_EQ(events, (QStringList{u"click Manual"_s, u"click URL"_s, u"click Number"_s}));
}

TEST_F(CoolComboInput, aLockedBoxShowsItsListOnly)
{
    combo.setLocked(true);
    combo.setFocus();
    key(Qt::Key_Down);
    turnWheel();
    Pointer::click(combo, onButton);
    ASSERT_TRUE(list()->isVisible());
    pick(2);
    EXPECT_EQ(combo.ListIndex(), u"1"_s);
    EXPECT_TRUE(events.isEmpty());
    QTest::keyClick(list(), Qt::Key_Down);
    QTest::keyClick(list(), Qt::Key_Return);
    EXPECT_FALSE(list()->isVisible());
    EXPECT_EQ(combo.ListIndex(), u"1"_s);
    combo.setListIndex(u"2"_s);
    EXPECT_EQ(combo.Text(), u"Manual"_s);
}

TEST_F(CoolComboInput, disabledItTakesNoInput)
{
    combo.setEnabled(false);
    Pointer::click(combo, onButton);
    Pointer::click(combo, onText);
    EXPECT_FALSE(list()->isVisible());
    EXPECT_EQ(combo.ButtonIcon(), picUP());
}

} // namespace vistrel
