#include "platform/drawing/property_bag.h"

#include "tests/support/printers.h"
#include "tests/support/properties.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace vistrel
{

TEST(PropertyBag, defaultsAreLeftOutAndReadForMissingKeysWhichAreExact)
{
    PropertyBag bag;
    bag.writeString(u"Caption"_s, u"OK"_s, u"OK"_s);
    bag.writeBool(u"Enabled"_s, true, true);
    bag.writeColor(u"BackColor"_s, Color{5}, Color{5});
    bag.writeFont(u"Font"_s, Font{}, Font{});
    bag.writePicture(u"Picture"_s, Picture());
    bag.writePicture(u"Icon"_s, Picture(QImage(2, 2, QImage::Format_RGB32)));
    bag.writeInt32(u"Style"_s, 1, 0);
    ASSERT_EQ(bag.entries().size(), 1);
    EXPECT_EQ(bag.readInt32(u"style"_s, 7), 7);
    EXPECT_TRUE(bag.readBool(u"Enabled"_s, true));
    EXPECT_EQ(bag.readFont(u"Font"_s, {u"Verdana"_s, 9}), (Font{u"Verdana"_s, 9}));
}

TEST(PropertyBag, numericKindsConvertIntoEachOther)
{
    PropertyBag bag;
    bag.set(u"color"_s, Color{0x8000000F});
    bag.set(u"flag"_s, true);
    bag.set(u"number"_s, 255);
    EXPECT_EQ(bag.readInt32(u"color"_s, 0), static_cast<qint32>(0x8000000F));
    EXPECT_EQ(bag.readInt16(u"flag"_s, 0), -1);
    EXPECT_TRUE(bag.readBool(u"number"_s, false));
    EXPECT_EQ(bag.readColor(u"number"_s, {}), Color{255});
}

TEST(PropertyBag, wrongKindsAndWideNumbersAreRunTimeErrors)
{
    PropertyBag bag;
    bag.set(u"text"_s, u"12"_s);
    bag.set(u"wide"_s, 32768);
    using enum RuntimeError::Number;
    EXPECT_EQ(errorOf([&] { (void)bag.readInt16(u"text"_s, 0); }), TypeMismatch);
    EXPECT_EQ(errorOf([&] { (void)bag.readInt16(u"wide"_s, 0); }), Overflow);
    EXPECT_EQ(errorOf([&] { (void)bag.readFont(u"wide"_s, {}); }), TypeMismatch);
}

} // namespace vistrel
