#include "controls/slider/cpv_slider.h"
#include "platform/runtime_error.h"
#include "tests/support/printers.h"
#include "tests/support/properties.h"

#include <QAccessible>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

/// A new horizontal slider 100 pixels long, and what it raises.
class CpvSliderProperties : public testing::Test
{
protected:
    CpvSliderProperties()
    {
        slider.InitProperties();
        slider.setSizeTwips(1500, 240);
        slider.setOrientation(horizontalOrientation);
        slider.setSizeTwips(1500, 240);
        const auto note = [this](const char* event) {
            return [this, event] { events += QString::fromLatin1(event); };
        };
        QObject::connect(&slider, &cpvSlider::ValueChanged, note("changed"));
        QObject::connect(&slider, &cpvSlider::ArrivedFirst, note("first"));
        QObject::connect(&slider, &cpvSlider::ArrivedLast, note("last"));
        QObject::connect(&slider, &cpvSlider::propertyChanged,
                         [this](const QString& name) { events += name; });
    }

    void expectError(RuntimeError::Number number, const char* property, qint32 value)
    {
        events.clear();
        const PropertyBag before = saved(slider);
        try {
            slider.setProperty(property, value);
            ADD_FAILURE() << property << ' ' << value;
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.number(), number) << property << ' ' << value;
        }
        EXPECT_EQ(saved(slider), before);
        EXPECT_TRUE(events.isEmpty());
    }

    cpvSlider slider;
    QStringList events;
};

} // namespace

TEST(CpvSliderNew, isVerticalWithTheThumbAtTheBottom)
{
    cpvSlider slider;
    slider.InitProperties();
    slider.setSizeTwips(600, 1500);
    EXPECT_EQ(slider.Orientation(), 1);
    EXPECT_EQ(slider.size(), QSize(16, 100));
    EXPECT_EQ(slider.thumb(), QRectF(0, 84, 16, 16));
    EXPECT_EQ(slider.Max(), 10);
    EXPECT_TRUE(saved(slider).entries().isEmpty());
}

TEST_F(CpvSliderProperties, valuesMoveTheThumbAndRaiseTheirEvents)
{
    slider.setValue(5);
    EXPECT_EQ(slider.thumb().left(), 42);
    slider.setValue(10);
    slider.setValue(10);
    slider.setValue(0);
    EXPECT_EQ(slider.thumb().left(), 0);
    EXPECT_EQ(events, (QStringList{u"changed"_s, u"Value"_s, u"changed"_s, u"last"_s, u"Value"_s, u"Value"_s,
                                   u"changed"_s, u"first"_s, u"Value"_s}));
}

TEST_F(CpvSliderProperties, numbersOutOfRangeAreRefused)
{
    slider.setValue(4);
    using enum RuntimeError::Number;
    expectError(InvalidPropertyValue, "Value", -1);
    expectError(InvalidPropertyValue, "Value", 11);
    expectError(InvalidPropertyValue, "Max", 0);
    expectError(InvalidPropertyValue, "Min", 10);
    expectError(InvalidPropertyValue, "Min", 100000);
    expectError(Overflow, "Max", 32768);
    expectError(Overflow, "Min", -32769);
    expectError(Overflow, "Min", -32760); // The difference does not fit.
}

TEST_F(CpvSliderProperties, aNewMinimumBecomesTheValue)
{
    slider.setValue(7);
    events.clear();
    slider.setMin(3);
    EXPECT_EQ(slider.Value(), 3);
    EXPECT_EQ(slider.thumb().left(), 0);
    EXPECT_EQ(events, (QStringList{u"changed"_s, u"first"_s, u"Value"_s, u"Min"_s}));
}

TEST_F(CpvSliderProperties, aNewMaximumLeavesTheValueAndTheThumb)
{
    slider.setValue(7);
    slider.setMax(5);
    EXPECT_EQ(slider.Value(), 7);
    EXPECT_FLOAT_EQ(static_cast<float>(slider.thumb().left()), 58.8F);
    slider.setValue(5);
    EXPECT_EQ(slider.thumb().left(), 84);
    EXPECT_TRUE(events.contains(u"last"_s));
}

TEST_F(CpvSliderProperties, everySetterReportsItsProperty)
{
    const PropertySettings settings = {
        {u"Enabled"_s, false},
        {u"BackColor"_s, QVariant::fromValue(Color{1})},
        {u"Max"_s, 20},
        {u"Value"_s, 0},
        {u"Orientation"_s, 1},
        {u"RailStyle"_s, 2},
        {u"SliderIcon"_s, QVariant::fromValue(Picture())},
        {u"RailPicture"_s, QVariant::fromValue(Picture())},
        {u"ShowValueTip"_s, false},
    };
    expectReports(slider, settings);
}

TEST_F(CpvSliderProperties, areSavedInTheirOrderAndComeBack)
{
    slider.setBackColor({0x80000005});
    slider.setEnabled(false);
    slider.setRailStyle(99);
    slider.setShowValueTip(false);
    slider.setMax(100);
    slider.setMin(1);
    slider.setValue(80);
    const PropertyBag bag = saved(slider);
    EXPECT_EQ(keys(bag), (QStringList{u"BackColor"_s, u"Enabled"_s, u"Orientation"_s, u"RailStyle"_s,
                                      u"ShowValueTip"_s, u"Min"_s, u"Max"_s, u"Value"_s}));
    cpvSlider loaded;
    loaded.ReadProperties(bag);
    EXPECT_EQ(saved(loaded), bag);
    EXPECT_TRUE(loaded.SliderIcon().isNull());
}

TEST_F(CpvSliderProperties, loadingRaisesNothingAndDoesNotCountAsAChange)
{
    PropertyBag bag;
    bag.set(u"Value"_s, 8);
    bag.set(u"Max"_s, 5);
    bag.set(u"Orientation"_s, 0);
    slider.ReadProperties(bag);
    EXPECT_TRUE(events.isEmpty());
    EXPECT_EQ(slider.Value(), 8);

    bag.set(u"Max"_s, 16);
    slider.ReadProperties(bag);
    slider.setSliderIcon(cpvSlider().SliderIcon());
    EXPECT_EQ(slider.thumb().left(), 42);
    events.clear();
    slider.setValue(0); // The last value that was set.
    EXPECT_EQ(events, QStringList{u"Value"_s});
    EXPECT_EQ(slider.thumb().left(), 42);

    slider.ReadProperties(bag);
    events.clear();
    slider.setValue(8);
    EXPECT_EQ(events, (QStringList{u"changed"_s, u"Value"_s}));
}

TEST_F(CpvSliderProperties, anEmptyRangeFromABagLeavesTheThumb)
{
    PropertyBag bag;
    bag.set(u"Min"_s, 10);
    bag.set(u"Orientation"_s, 0);
    slider.setValue(5);
    slider.ReadProperties(bag);
    slider.setSizeTwips(3000, 240);
    EXPECT_EQ(slider.thumb().left(), 42);
    EXPECT_NO_THROW(slider.setValue(10));

    bag.set(u"Min"_s, -32768);
    EXPECT_THROW(slider.ReadProperties(bag), RuntimeError);
}

TEST_F(CpvSliderProperties, assistiveToolsSeeASliderAndCanSetIt)
{
    slider.setAccessibleName(u"JPEG Quality"_s);
    slider.setValue(4);
    QAccessibleInterface* seen = QAccessible::queryAccessibleInterface(&slider);
    ASSERT_NE(seen, nullptr);
    EXPECT_EQ(seen->role(), QAccessible::Slider);
    EXPECT_EQ(seen->text(QAccessible::Name), u"JPEG Quality"_s);
    EXPECT_EQ(seen->text(QAccessible::Value), u"4"_s);
    QAccessibleValueInterface* number = seen->valueInterface();
    ASSERT_NE(number, nullptr);
    EXPECT_EQ(number->currentValue(), 4);
    EXPECT_EQ(number->minimumValue(), 0);
    EXPECT_EQ(number->maximumValue(), 10);
    number->setCurrentValue(9);
    EXPECT_EQ(slider.Value(), 9);
    number->setCurrentValue(11);
    slider.setEnabled(false);
    number->setCurrentValue(3);
    EXPECT_EQ(slider.Value(), 9);
    EXPECT_TRUE(seen->state().readOnly);
}

} // namespace vistrel
