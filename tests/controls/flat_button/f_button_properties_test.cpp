#include "controls/flat_button/f_button.h"
#include "platform/runtime_error.h"
#include "tests/support/printers.h"

#include <QAccessible>

#include <gtest/gtest.h>

#include <utility>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

PropertyBag saved(const FButton& button)
{
    PropertyBag bag;
    button.WriteProperties(bag);
    return bag;
}

QStringList keys(const PropertyBag& bag)
{
    QStringList result;
    for (const auto& entry : bag.entries())
        result += entry.key;
    return result;
}

} // namespace

TEST(FButtonProperties, aNewButtonHasItsOwnDefaults)
{
    FButton button;
    button.setAmbientFont({u"Verdana"_s, 9});
    button.InitProperties();
    EXPECT_EQ(button.Caption(), u"Flash Button"_s);
    EXPECT_EQ(button.style(), 0);
    EXPECT_EQ(button.MouseOnColor(), Color{0x87CDFC});
    EXPECT_EQ(button.MouseDownColor(), Color{0xC5D6D9});
    EXPECT_EQ(button.StyleColor(), Color{0xB17600});
    EXPECT_EQ(button.Style3DColor1(), Color{0xFFFFFF});
    EXPECT_EQ(button.Style3DColor2(), Color{0x808080});
    EXPECT_EQ(button.HovForceColor(), Color{0});
    EXPECT_EQ(button.Font(), (Font{u"Verdana"_s, 9}));
    EXPECT_FALSE(button.IfDraw());
    EXPECT_TRUE(button.Enabled());
}

TEST(FButtonProperties, anEmptyBagLoadsTheOtherDefaults)
{
    FButton button;
    button.ReadProperties({});
    EXPECT_EQ(button.Caption(), u"Flat Button"_s);
    EXPECT_EQ(button.BackColor(), Color{0x8000000F});
    for (const Color color : {button.ForeColor(), button.MouseDownColor(), button.MouseOnColor(),
                              button.StyleColor(), button.Style3DColor1(), button.Style3DColor2()})
        EXPECT_EQ(color, Color{0x80000012});
    EXPECT_EQ(button.HovForceColor(), Color{0});
    EXPECT_EQ(keys(saved(button)), QStringList{u"Caption"_s});
}

TEST(FButtonProperties, areSavedInTheirOrderAndComeBack)
{
    FButton button;
    button.InitProperties();
    button.setCaption(u"Stop  \r\nnow"_s);
    button.setBackColor({0x112233});
    button.setForeColor({0x80000008});
    button.setStyle(-7);
    button.setEnabled(false);
    button.setFont({u"Verdana"_s, 9, true});
    button.setIfDraw(true);
    button.setHovForceColor({0xFF});
    const PropertyBag bag = saved(button);
    EXPECT_EQ(keys(bag),
              (QStringList{u"Caption"_s, u"BackColor"_s, u"ForeColor"_s, u"MouseDownColor"_s,
                           u"MouseOnColor"_s, u"StyleColor"_s, u"Style3dColor1"_s, u"Style3dColor2"_s,
                           u"style"_s, u"Enabled"_s, u"Font"_s, u"IfDraw"_s, u"HovForceColor"_s}));
    FButton loaded;
    loaded.ReadProperties(bag);
    EXPECT_EQ(saved(loaded), bag);
    EXPECT_FALSE(loaded.isEnabled());
}

TEST(FButtonProperties, theFlashingCaptionComesBackFlat)
{
    const std::pair<QString, QString> rows[] = {
        {u"Flash Button"_s, u"Flat Button"_s}, {u"Flat Button"_s, u"Flat Button"_s}, {u""_s, u""_s}};
    for (const auto& [caption, expected] : rows) {
        FButton button, loaded;
        button.setCaption(caption);
        loaded.ReadProperties(saved(button));
        EXPECT_EQ(loaded.Caption(), expected);
    }
}

TEST(FButtonProperties, everySetterReportsItsPropertyAndAllButCaptionRepaint)
{
    FButton button;
    button.InitProperties();
    QStringList reported;
    QObject::connect(&button, &FButton::propertyChanged, [&](const QString& name) { reported += name; });
    const struct {
        const char* property;
        QVariant value;
    } rows[] = {
        {"BackColor", QVariant::fromValue(Color{1})},
        {"ForeColor", QVariant::fromValue(Color{2})},
        {"MouseOnColor", QVariant::fromValue(Color{3})},
        {"MouseDownColor", QVariant::fromValue(Color{4})},
        {"Style3DColor1", QVariant::fromValue(Color{5})},
        {"Style3DColor2", QVariant::fromValue(Color{6})},
        {"StyleColor", QVariant::fromValue(Color{7})},
        {"HovForceColor", QVariant::fromValue(Color{8})},
        {"Font", QVariant::fromValue(Font{u"Verdana"_s})},
        {"Picture", QVariant::fromValue(Picture())},
        {"style", 1},
        {"Enabled", false},
        {"IfDraw", true},
    };
    for (const auto& row : rows) {
        reported.clear();
        ASSERT_TRUE(button.setProperty(row.property, row.value));
        // Each repaint reports the caption that it draws.
        EXPECT_EQ(reported, (QStringList{u"Caption"_s, QString::fromLatin1(row.property)}));
    }
    reported.clear();
    button.setProperty("Caption", u"Go"_s);
    EXPECT_EQ(reported, QStringList{u"Caption"_s});
}

TEST(FButtonProperties, aValueOfTheWrongKindIsATypeMismatch)
{
    PropertyBag bag;
    bag.set(u"style"_s, u"left"_s);
    FButton button;
    EXPECT_THROW(button.ReadProperties(bag), RuntimeError);
}

TEST(FButtonProperties, assistiveToolsSeeAButtonAndCanPressIt)
{
    FButton button;
    button.setCaption(u"Options    "_s);
    int clicks = 0;
    QObject::connect(&button, &FButton::Click, [&] { ++clicks; });
    QAccessibleInterface* seen = QAccessible::queryAccessibleInterface(&button);
    ASSERT_NE(seen, nullptr);
    EXPECT_EQ(seen->role(), QAccessible::Button);
    EXPECT_EQ(seen->text(QAccessible::Name), u"Options"_s);
    EXPECT_FALSE(seen->state().disabled);
    seen->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(clicks, 1);

    button.setEnabled(false);
    EXPECT_TRUE(seen->state().disabled);
    seen->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(clicks, 1);
}

} // namespace vistrel
