#include "platform/drawing/property_bag.h"

#include "platform/runtime_error.h"
#include "tests/support/printers.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace vistrel
{

TEST(PropertyBag, valuesEqualToTheirDefaultAreNotWritten)
{
    PropertyBag bag;
    bag.writeString(u"Caption"_s, u"OK"_s, u"OK"_s);
    bag.writeBool(u"Enabled"_s, true, true);
    bag.writeColor(u"BackColor"_s, Color{5}, Color{5});
    bag.writeFont(u"Font"_s, Font{}, Font{});
    bag.writePicture(u"Picture"_s, Picture());
    bag.writePicture(u"Icon"_s, Picture(QImage(2, 2, QImage::Format_RGB32)));
    bag.writeInt32(u"style"_s, 1, 0);
    ASSERT_EQ(bag.entries().size(), 1);
    EXPECT_EQ(bag.entries().first().key, u"style"_s);
}

TEST(PropertyBag, missingKeysReadAsTheDefaultAndKeysAreExact)
{
    PropertyBag bag;
    bag.writeInt32(u"Style"_s, 1, 0);
    EXPECT_EQ(bag.readInt32(u"style"_s, 7), 7);
    EXPECT_TRUE(bag.readBool(u"Enabled"_s, true));
    EXPECT_EQ(bag.readString(u"Caption"_s, u"Flat"_s), u"Flat"_s);
    EXPECT_EQ(bag.readFont(u"Font"_s, {u"Verdana"_s, 9}), (Font{u"Verdana"_s, 9}));
    EXPECT_TRUE(bag.readPicture(u"Picture"_s).isNull());
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
    const auto number = [&](const QString& key) {
        try {
            static_cast<void>(bag.readInt16(key, 0));
        } catch (const RuntimeError& error) {
            return error.number();
        }
        return RuntimeError::Number::ObjectNotSet;
    };
    EXPECT_EQ(number(u"text"_s), RuntimeError::Number::TypeMismatch);
    EXPECT_EQ(number(u"wide"_s), RuntimeError::Number::Overflow);
    EXPECT_THROW(static_cast<void>(bag.readFont(u"wide"_s, {})), RuntimeError);
}

} // namespace vistrel
