#include "controls/slider/cpv_slider.h"
#include "tests/support/pixels.h"
#include "tests/support/printers.h"
#include "tests/support/properties.h"

#include <QAccessible>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

const QColor face(212, 208, 200), shadow(128, 128, 128), dark(64, 64, 64), white(255, 255, 255);

Picture plain(QSize size, Qt::GlobalColor color)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(color);
    return Picture(image);
}

/// A new horizontal slider of 100 x 16 pixels, and what it raises.
class CpvSliderTest : public testing::Test
{
protected:
    CpvSliderTest()
    {
        slider.InitProperties();
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

    QColor at(int x, int y) const { return pixel(slider, {x, y}); }

    /// Loads a lying slider from value and a range of 0 to max, with the own thumb.
    void load(qint32 value, qint32 max)
    {
        PropertyBag bag;
        bag.set(u"Value"_s, value);
        bag.set(u"Max"_s, max);
        bag.set(u"Orientation"_s, 0);
        slider.ReadProperties(bag);
        EXPECT_TRUE(events.isEmpty());
        slider.setSliderIcon(cpvSlider().SliderIcon());
        events.clear();
    }

    cpvSlider slider;
    QStringList events;
};

} // namespace

TEST_F(CpvSliderTest, theOwnThumbFollowsTheValue)
{
    slider.setValue(5);
    EXPECT_EQ(at(42, 0), QColor(Qt::black));
    EXPECT_EQ(at(41, 0), face);
    EXPECT_EQ(at(43, 1), white);
    slider.InitProperties();
    slider.setSizeTwips(600, 1500);
    EXPECT_EQ(slider.size(), QSize(16, 100));
    EXPECT_EQ(slider.thumb(), QRectF(0, 84, 16, 16)) << "a new one is vertical";
}

TEST_F(CpvSliderTest, drawnRailsFollowTheirStyle)
{
    const struct {
        qint32 style;
        QColor outer, inner, innerEnd, outerEnd;
    } rows[] = {
        {0, shadow, dark, face, white}, {1, face, white, shadow, dark}, {2, shadow, face, face, white},
        {3, white, face, face, shadow}, {-1, face, face, face, face},
    };
    for (const auto& row : rows) {
        slider.setRailStyle(row.style);
        EXPECT_EQ(at(50, 6), row.outer) << row.style;
        EXPECT_EQ(at(50, 7), row.inner) << row.style;
        EXPECT_EQ(at(50, 8), row.innerEnd) << row.style;
        EXPECT_EQ(at(93, 9), row.outerEnd) << row.style;
        EXPECT_EQ(at(94, 8), face);
    }
}

TEST_F(CpvSliderTest, aRailPictureSizesTheSliderAndIsDrawnInItsMiddle)
{
    slider.setRailStyle(pictureRailStyle);
    slider.setRailPicture(plain({175, 8}, Qt::blue));
    EXPECT_EQ(slider.size(), QSize(179, 16));
    EXPECT_EQ(at(176, 11), QColor(Qt::blue));
    for (const QPoint outside : {QPoint(177, 4), QPoint(100, 3), QPoint(100, 12)})
        EXPECT_EQ(pixel(slider, outside), face);
    slider.setOrientation(verticalOrientation);
    slider.setRailPicture(plain({20, 60}, Qt::blue));
    EXPECT_EQ(slider.thumb(), QRectF(2, 48, 16, 16));
    EXPECT_EQ(at(0, 2), QColor(Qt::blue));
    EXPECT_EQ(at(0, 1), face);
}

TEST_F(CpvSliderTest, valuesMoveTheThumbAndRaiseTheirEvents)
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

TEST_F(CpvSliderTest, numbersOutOfRangeAreRefused)
{
    slider.setValue(4);
    events.clear();
    const PropertyBag before = saved(slider);
    using enum RuntimeError::Number;
    const std::tuple<const char*, qint32, RuntimeError::Number> rows[] = {
        {"Value", -1, InvalidPropertyValue},
        {"Value", 11, InvalidPropertyValue},
        {"Max", 0, InvalidPropertyValue},
        {"Min", 10, InvalidPropertyValue},
        {"Min", 100000, InvalidPropertyValue},
        {"Max", 32768, Overflow},
        {"Min", -32769, Overflow},
        {"Min", -32760, Overflow}, // The difference does not fit.
    };
    for (const auto& [property, value, number] : rows)
        EXPECT_EQ(errorOf([&] { slider.setProperty(property, value); }), number) << property << ' ' << value;
    EXPECT_EQ(saved(slider), before);
    EXPECT_TRUE(events.isEmpty());
}

TEST_F(CpvSliderTest, aNewMinimumBecomesTheValueAndANewMaximumDoesNot)
{
    slider.setValue(7);
    events.clear();
    slider.setMin(3);
    EXPECT_EQ(slider.Value(), 3);
    EXPECT_EQ(slider.thumb().left(), 0);
    EXPECT_EQ(events, (QStringList{u"changed"_s, u"first"_s, u"Value"_s, u"Min"_s}));

    slider.setValue(7);
    slider.setMax(5);
    EXPECT_EQ(slider.Value(), 7);
    EXPECT_EQ(slider.thumb().left(), 48);
    slider.setValue(5);
    EXPECT_EQ(slider.thumb().left(), 84);
    EXPECT_TRUE(events.contains(u"last"_s));
}

TEST_F(CpvSliderTest, loadingRaisesNothingAndDoesNotCountAsAChange)
{
    load(8, 5);
    EXPECT_EQ(slider.Value(), 8);
    load(8, 16);
    EXPECT_EQ(slider.thumb().left(), 42);
    slider.setValue(0); // The last value that was set.
    EXPECT_EQ(events, QStringList{u"Value"_s});
    EXPECT_EQ(slider.thumb().left(), 42);

    events.clear();
    load(8, 16);
    slider.setValue(8);
    EXPECT_EQ(events, (QStringList{u"changed"_s, u"Value"_s}));
}

TEST_F(CpvSliderTest, isLaidOutAtTheSizeThatEveryNewWidgetHas)
{
    QWidget host;
    cpvSlider fresh(&host);
    fresh.setSizeTwips(fresh.Width(), fresh.Height());
    EXPECT_EQ(fresh.width(), 16);
}

TEST_F(CpvSliderTest, anEmptyRangeFromABagLeavesTheThumb)
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

TEST_F(CpvSliderTest, assistiveToolsSeeASliderAndCanSetIt)
{
    slider.setValue(4);
    QAccessibleInterface* seen = QAccessible::queryAccessibleInterface(&slider);
    ASSERT_NE(seen, nullptr);
    EXPECT_EQ(seen->role(), QAccessible::Slider);
    EXPECT_EQ(seen->text(QAccessible::Value), u"4"_s);
    QAccessibleValueInterface* number = seen->valueInterface();
    ASSERT_NE(number, nullptr);
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
