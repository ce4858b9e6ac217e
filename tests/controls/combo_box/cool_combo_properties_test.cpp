#include "controls/combo_box/cool_combo.h"
#include "platform/runtime_error.h"
#include "tests/support/printers.h"
#include "tests/support/properties.h"

#include <QAccessible>
#include <QComboBox>

#include <gtest/gtest.h>

#include <functional>
#include <utility>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

/// A new combo box with three items, and what it raises.
class CoolComboProperties : public testing::Test
{
protected:
    CoolComboProperties()
    {
        combo.InitProperties();
        for (const char* item : {"URL", "Number", "Manual"})
            combo.AddItem(QString::fromLatin1(item));
        QObject::connect(&combo, &coolCombo::Click, [this] { events += u"click "_s + combo.Text(); });
        QObject::connect(&combo, &coolCombo::propertyChanged,
                         [this](const QString& name) { events += name; });
    }

    QString shown() const { return combo.findChild<QComboBox*>(u"Combo1"_s)->currentText(); }

    coolCombo combo;
    QStringList events;
};

RuntimeError::Number errorOf(const std::function<void()>& call)
{
    try {
        call();
    } catch (const RuntimeError& error) {
        return error.number();
    }
    ADD_FAILURE() << "no error";
    return {};
}

} // namespace

TEST_F(CoolComboProperties, nothingIsSelectedUntilAnItemIs)
{
    EXPECT_EQ(combo.ListIndex(), u"-1"_s);
    EXPECT_EQ(combo.ListCount(), u"3"_s);
    EXPECT_EQ(combo.Text(), u"QRT"_s);
    EXPECT_EQ(shown(), u""_s);
    EXPECT_TRUE(events.isEmpty());
}

TEST_F(CoolComboProperties, settingTheIndexSelectsClicksAndReports)
{
    combo.setListIndex(u"2"_s);
    EXPECT_EQ(shown(), u"Manual"_s);
    EXPECT_EQ(combo.Text(), u"Manual"_s);
    EXPECT_EQ(events, (QStringList{u"click Manual"_s, u"ListIndex"_s}));
    combo.setListIndex(u"-1"_s);
    EXPECT_EQ(combo.Text(), u""_s);
    EXPECT_EQ(combo.ListIndex(), u"-1"_s);
}

TEST_F(CoolComboProperties, theTextIsCopiedOnceMoreAfterTheClick)
{
    QObject::connect(&combo, &coolCombo::Click, [this] { combo.setText(u"mine"_s); });
    combo.setListIndex(u"0"_s);
    EXPECT_EQ(combo.Text(), u"URL"_s);
}

TEST_F(CoolComboProperties, anIndexIsReadAsANumber)
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

TEST_F(CoolComboProperties, textIsACopyOnly)
{
    combo.setListIndex(u"1"_s);
    events.clear();
    combo.setText(u"something else"_s);
    EXPECT_EQ(combo.Text(), u"something else"_s);
    EXPECT_EQ(shown(), u"Number"_s);
    EXPECT_EQ(combo.ListIndex(), u"1"_s);
    combo.setListCount(u"9"_s);
    EXPECT_EQ(combo.ListCount(), u"3"_s);
    EXPECT_EQ(events, QStringList{u"ListCount"_s});
}

TEST_F(CoolComboProperties, itemsAreAddedAndRemoved)
{
    combo.AddItem(42);
    EXPECT_EQ(combo.ListCount(), u"4"_s);
    combo.setListIndex(u"3"_s);
    EXPECT_EQ(combo.Text(), u"42"_s);
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

TEST_F(CoolComboProperties, everySetterButTextReportsItsProperty)
{
    const PropertySettings settings = {
        {u"ForeColor"_s, QVariant::fromValue(Color{1})},
        {u"Font"_s, QVariant::fromValue(Font{u"Verdana"_s})},
        {u"ButtonIcon"_s, QVariant::fromValue(Picture())},
        {u"Enabled"_s, false},
        {u"RightToLeft"_s, true},
        {u"BackColor"_s, QVariant::fromValue(Color{2})},
        {u"Locked"_s, true},
    };
    expectReports(combo, settings);
    events.clear();
    combo.setProperty("Text", u"JPEG"_s);
    EXPECT_TRUE(events.isEmpty());
}

TEST(CoolComboBag, aNewControlSavesNothing)
{
    coolCombo combo;
    combo.setAmbientFont({u"Verdana"_s, 9});
    combo.InitProperties();
    EXPECT_EQ(combo.Text(), u"QRT"_s);
    EXPECT_EQ(combo.BackColor(), Color{0xFFFFFF});
    EXPECT_FALSE(combo.ButtonIcon().isNull());
    EXPECT_TRUE(saved(combo).entries().isEmpty());
}

TEST(CoolComboBag, propertiesAreSavedInTheirOrderAndComeBack)
{
    coolCombo combo;
    combo.InitProperties();
    combo.setText(u"JPEG"_s);
    combo.setForeColor({0x80000008});
    combo.setFont({u"Verdana"_s, 9, true});
    combo.setEnabled(false);
    combo.setRightToLeft(true);
    combo.setBackColor({0x112233});
    combo.setLocked(true);
    const PropertyBag bag = saved(combo);
    EXPECT_EQ(keys(bag), (QStringList{u"Text"_s, u"ForeColor"_s, u"Font"_s, u"Enabled"_s, u"RightToLeft"_s,
                                      u"BackColor"_s, u"Locked"_s}));
    coolCombo loaded;
    loaded.ReadProperties(bag);
    EXPECT_EQ(saved(loaded), bag);
    EXPECT_FALSE(loaded.isEnabled());
    EXPECT_TRUE(loaded.ButtonIcon().isNull());
}

TEST_F(CoolComboProperties, assistiveToolsSeeTheBoxWithTheFormsName)
{
    auto* box = combo.findChild<QComboBox*>(u"Combo1"_s);
    EXPECT_EQ(combo.focusProxy(), box);
    combo.setAccessibleName(u"Image Format"_s);
    combo.setListIndex(u"1"_s);
    QAccessibleInterface* seen = QAccessible::queryAccessibleInterface(box);
    ASSERT_NE(seen, nullptr);
    EXPECT_EQ(seen->role(), QAccessible::ComboBox);
    EXPECT_EQ(seen->text(QAccessible::Name), u"Image Format"_s);
    EXPECT_EQ(seen->text(QAccessible::Value), u"Number"_s);
    EXPECT_TRUE(seen->state().collapsed);
    ASSERT_NE(seen->child(0), nullptr);
    EXPECT_EQ(seen->child(0)->childCount(), 3);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&combo)->text(QAccessible::Name), u"Image Format"_s);

    combo.show();
    seen->actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
    EXPECT_TRUE(seen->state().expanded);
    EXPECT_TRUE(seen->child(0)->child(1)->state().selected);
}

} // namespace vistrel
