#include "controls/check_button/coolradiobutton.h"
#include "tests/support/printers.h"
#include "tests/support/properties.h"

#include <QAccessible>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace vistrel
{

TEST(CoolradiobuttonProperties, aNewButtonHasItsDefaultsAndSavesNothing)
{
    Coolradiobutton button;
    button.setObjectName(u"chkThum"_s);
    button.setAmbientFont({u"Verdana"_s, 9});
    button.InitProperties();
    EXPECT_EQ(button.Caption(), u"chkThum"_s);
    EXPECT_EQ(button.BtnType(), 1);
    EXPECT_EQ(button.Font(), (Font{u"Verdana"_s, 9}));
    EXPECT_EQ(button.BackColor(), Color{0x8000000F});
    EXPECT_EQ(button.HotColor(), Color{0xFF0000});
    EXPECT_TRUE(button.HotUnderLine());
    EXPECT_TRUE(saved(button).entries().isEmpty());

    Coolradiobutton loaded;
    loaded.setObjectName(u"chkThum"_s);
    loaded.setAmbientFont({u"Verdana"_s, 9});
    loaded.ReadProperties({});
    EXPECT_EQ(loaded.Caption(), u"chkThum"_s);
    EXPECT_TRUE(saved(loaded).entries().isEmpty());
}

TEST(CoolradiobuttonProperties, areSavedInTheirOrderAndComeBack)
{
    Coolradiobutton button;
    button.InitProperties();
    button.setBtnType(-5);
    button.setValue(true);
    button.setCaption(u"Overwrite  "_s);
    button.setEnabled(false);
    button.setFont({u"Verdana"_s, 9, true});
    button.setBackColor({0x80000005});
    button.setForeColor({0x112233});
    button.setHotColor({0xFF});
    button.setMousePointer(2);
    button.setHotUnderLine(false);
    const PropertyBag bag = saved(button);
    EXPECT_EQ(keys(bag),
              (QStringList{u"BtnType"_s, u"Font"_s, u"Value"_s, u"Caption"_s, u"Enabled"_s, u"BackColor"_s,
                           u"ForeColor"_s, u"HotColor"_s, u"MousePointer"_s, u"HotUnderLine"_s}));
    Coolradiobutton loaded;
    loaded.ReadProperties(bag);
    EXPECT_EQ(saved(loaded), bag);
    EXPECT_FALSE(loaded.isEnabled());
    EXPECT_EQ(loaded.cursor().shape(), Qt::CrossCursor);
}

TEST(CoolradiobuttonProperties, settersReportTheirPropertyButEnabled)
{
    Coolradiobutton button;
    button.InitProperties();
    int events = 0;
    QObject::connect(&button, &Coolradiobutton::Click, [&] { ++events; });
    const PropertySettings settings = {
        {u"BtnType"_s, 2},
        {u"Value"_s, true},
        {u"Caption"_s, u"Go"_s},
        {u"Font"_s, QVariant::fromValue(Font{u"Verdana"_s})},
        {u"BackColor"_s, QVariant::fromValue(Color{1})},
        {u"ForeColor"_s, QVariant::fromValue(Color{2})},
        {u"HotColor"_s, QVariant::fromValue(Color{3})},
        {u"MousePointer"_s, QVariant::fromValue(qint16{1})},
        {u"MouseIcon"_s, QVariant::fromValue(Picture())},
        {u"HotUnderLine"_s, false},
    };
    expectReports(button, settings);
    QObject::connect(&button, &ControlWidget::propertyChanged, [&] { ++events; });
    button.setEnabled(false);
    EXPECT_EQ(events, 0);
}

TEST(CoolradiobuttonProperties, theGlyphShowsAtOnceWhateverIsSet)
{
    Coolradiobutton button;
    button.InitProperties();
    button.setSizeTwips(300, 240);
    const auto at = [&](int x, int y) { return button.surface().image().pixelColor(x, y + 3); };
    const QColor outline(165, 150, 132), face(212, 208, 200);
    EXPECT_EQ(at(0, 0), face);
    button.setBtnType(2);
    EXPECT_EQ(at(0, 0), outline);
    EXPECT_EQ(at(10, 10), outline);
    EXPECT_EQ(at(4, 8), face);
    button.setValue(true);
    EXPECT_EQ(at(4, 8), QColor(Qt::black));
    button.setEnabled(false);
    EXPECT_EQ(at(1, 1), QColor(222, 215, 198));
    button.setBackColor(Color::rgb(255, 0, 0));
    EXPECT_EQ(at(12, 12), QColor(255, 0, 0));
}

TEST(CoolradiobuttonProperties, assistiveToolsSeeACheckBoxAndCanToggleIt)
{
    Coolradiobutton button;
    button.InitProperties();
    button.setCaption(u"Create thumbnail  "_s);
    QAccessibleInterface* seen = QAccessible::queryAccessibleInterface(&button);
    ASSERT_NE(seen, nullptr);
    EXPECT_EQ(seen->role(), QAccessible::CheckBox);
    EXPECT_EQ(seen->text(QAccessible::Name), u"Create thumbnail"_s);
    EXPECT_TRUE(seen->state().checkable);
    EXPECT_FALSE(seen->state().checked);
    bool valueInHandler = true;
    QObject::connect(&button, &Coolradiobutton::Click, [&] { valueInHandler = button.Value(); });
    seen->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_FALSE(valueInHandler);
    EXPECT_TRUE(seen->state().checked);
}

} // namespace vistrel
