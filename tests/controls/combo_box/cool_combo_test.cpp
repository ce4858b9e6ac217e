#include "controls/combo_box/button_pictures.h"
#include "controls/combo_box/cool_combo.h"
#include "tests/support/pixels.h"
#include "tests/support/printers.h"
#include "tests/support/properties.h"

#include <QAccessible>
#include <QComboBox>

#include <gtest/gtest.h>

#include <cstdlib>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

const QColor frame(165, 150, 132), field(0, 130, 198), arrow(255, 207, 132), behind(27, 130, 180);

/// A combo box 100 pixels wide with three items, none selected, and what it raises.
class CoolComboTest : public testing::Test
{
protected:
    CoolComboTest()
    {
        combo.InitProperties();
        for (const char* item : {"URL", "Number", "Manual"})
            combo.AddItem(QString::fromLatin1(item));
        combo.setSizeTwips(1500, 900);
        QObject::connect(&combo, &coolCombo::Click, [this] { events += u"click "_s + combo.Text(); });
        QObject::connect(&combo, &coolCombo::propertyChanged,
                         [this](const QString& name) { events += name; });
    }

    QComboBox& box() const { return *combo.findChild<QComboBox*>(u"Combo1"_s); }
    QColor at(int x, int y) { return combo.grab().toImage().pixelColor(x, y); }
    QRect textBounds()
    {
        return boundsOf(combo.grab().toImage(), {2, 2, 96, 13}, [](QColor pixel) {
            return pixel.red() > 60 && pixel.green() == 0 && pixel.blue() == 0;
        });
    }

    coolCombo combo;
    QStringList events;
};

} // namespace

TEST_F(CoolComboTest, hasAFixedHeightAOnePixelFrameAndADropButtonOnItsSide)
{
    for (const QPoint edge : {QPoint(0, 0), QPoint(50, 0), QPoint(99, 8), QPoint(50, 16), QPoint(0, 8)})
        EXPECT_EQ(at(edge.x(), edge.y()), frame);
    EXPECT_EQ(at(82, 15), QColor(Qt::white));
    EXPECT_EQ(at(83, 1), field);
    EXPECT_EQ(at(83 + 6, 11), arrow) << "down at rest";
    EXPECT_EQ(at(83 + 6, 8), field);
    combo.setButtonIcon(picDown());
    EXPECT_EQ(at(83 + 6, 8), arrow) << "up when opened";
    EXPECT_EQ(at(97, 8), behind);
    combo.setRightToLeft(true);
    EXPECT_EQ(at(6, 8), arrow);
    EXPECT_EQ(at(98, 8), QColor(Qt::white));
    combo.resize(60, 40);
    EXPECT_EQ(combo.grab().toImage().size(), QSize(60, 17));
    combo.setEnabled(false);
    EXPECT_EQ(at(40, 2), QColor(212, 208, 200));
}

TEST_F(CoolComboTest, theTextStandsOnItsSideInTheControlsColours)
{
    combo.setForeColor(Color::rgb(200, 0, 0));
    combo.setBackColor(Color::rgb(0, 0, 0));
    EXPECT_TRUE(textBounds().isEmpty());
    combo.setListIndex(u"0"_s);
    EXPECT_LT(textBounds().left(), 8);
    EXPECT_LE(std::abs(textBounds().center().y() - 8), 1);
    combo.setRightToLeft(true);
    EXPECT_GT(textBounds().right(), 90);
}

TEST_F(CoolComboTest, settingTheIndexSelectsClicksAndReports)
{
    EXPECT_EQ(combo.ListIndex(), u"-1"_s);
    EXPECT_EQ(combo.Text(), u"QRT"_s);
    combo.setListIndex(u"2"_s);
    EXPECT_EQ(box().currentText(), u"Manual"_s);
    EXPECT_EQ(events, (QStringList{u"click Manual"_s, u"ListIndex"_s}));
    combo.setListIndex(u"-1"_s);
    EXPECT_EQ(combo.Text(), u""_s);

    QObject::connect(&combo, &coolCombo::Click, [this] { combo.setText(u"mine"_s); });
    combo.setListIndex(u"0"_s);
    EXPECT_EQ(combo.Text(), u"URL"_s) << "copied once more after the click";
    events.clear();
    combo.setText(u"something else"_s);
    combo.setListCount(u"9"_s);
    EXPECT_EQ(box().currentText(), u"URL"_s) << "the text is a copy only";
    EXPECT_EQ(combo.ListCount(), u"3"_s);
    EXPECT_EQ(events, QStringList{u"ListCount"_s});
}

TEST_F(CoolComboTest, anIndexIsReadAsANumber)
{
    const std::pair<QString, QString> rows[] = {
        {u"1"_s, u"1"_s}, {u" 2 "_s, u"2"_s}, {u"0.5"_s, u"0"_s}, {u"1.5"_s, u"2"_s}, {u"1e0"_s, u"1"_s}};
    for (const auto& [written, read] : rows) {
        combo.setListIndex(written);
        EXPECT_EQ(combo.ListIndex(), read) << written.toStdString();
    }
    using enum RuntimeError::Number;
    const std::pair<QString, RuntimeError::Number> wrong[] = {
        {u""_s, TypeMismatch},           {u"first"_s, TypeMismatch}, {u"nan"_s, TypeMismatch},
        {u"40000"_s, Overflow},          {u"inf"_s, Overflow},       {u"3"_s, InvalidPropertyValue},
        {u"-2"_s, InvalidPropertyValue},
    };
    events.clear();
    for (const auto& [text, number] : wrong)
        EXPECT_EQ(errorOf([&] { combo.setListIndex(text); }), number) << text.toStdString();
    EXPECT_EQ(combo.ListIndex(), u"1"_s);
    EXPECT_TRUE(events.isEmpty());
}

TEST_F(CoolComboTest, itemsAreAddedAndRemoved)
{
    combo.AddItem(42);
    EXPECT_EQ(combo.ListIndex(), u"-1"_s);
    combo.setListIndex(u"3"_s);
    combo.RemoveItem(0);
    EXPECT_EQ(combo.ListIndex(), u"2"_s);
    combo.RemoveItem(2);
    EXPECT_EQ(combo.ListIndex(), u"-1"_s);
    EXPECT_EQ(combo.Text(), u"42"_s);
    for (const qint16 index : {qint16{-1}, qint16{2}})
        EXPECT_EQ(errorOf([&] { combo.RemoveItem(index); }), RuntimeError::Number::InvalidProcedureCall);
    combo.Clear();
    EXPECT_EQ(combo.ListCount(), u"0"_s);
}

TEST_F(CoolComboTest, assistiveToolsSeeTheBoxWithTheFormsName)
{
    combo.setAccessibleName(u"Image Format"_s);
    combo.setListIndex(u"1"_s);
    combo.show();
    QAccessibleInterface* seen = QAccessible::queryAccessibleInterface(&box());
    ASSERT_NE(seen, nullptr);
    EXPECT_EQ(seen->role(), QAccessible::ComboBox);
    EXPECT_EQ(seen->text(QAccessible::Name), u"Image Format"_s);
    EXPECT_EQ(seen->text(QAccessible::Value), u"Number"_s);
    EXPECT_TRUE(seen->state().collapsed);
    seen->actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
    EXPECT_TRUE(seen->state().expanded);
    ASSERT_NE(seen->child(0), nullptr);
    EXPECT_TRUE(seen->child(0)->child(1)->state().selected);
}

} // namespace vistrel
