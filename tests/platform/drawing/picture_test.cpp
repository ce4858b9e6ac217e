#include "platform/drawing/design_text.h"
#include "platform/drawing/picture.h"
#include "tests/support/printers.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace vistrel
{

TEST(Picture, comesFromTheResourcesWithItsDenseVariant)
{
    const Picture dot = Picture::fromResource(u"dot.png"_s);
    EXPECT_EQ(dot.name(), u"dot.png"_s);
    EXPECT_EQ(dot.size(), QSize(3, 2));
    EXPECT_EQ(dot.imageFor(1).pixelColor(0, 0), QColor(Qt::red));
    EXPECT_EQ(dot.imageFor(1.5).pixelColor(0, 0), QColor(Qt::blue));
    EXPECT_EQ(dot.imageFor(3).size(), QSize(6, 4));
    EXPECT_EQ(Picture::fromResource(u"plain.png"_s).imageFor(2).size(), QSize(4, 4));
    EXPECT_TRUE(Picture::fromResource(u"none.png"_s).isNull());
}

TEST(Picture, isSavedByName)
{
    ControlDesign control{u"fbSaveList"_s, u"FButton"_s, {}};
    control.properties.writePicture(u"Picture"_s, Picture::fromResource(u"dot.png"_s));
    EXPECT_EQ(writeDesign({control}), u"[fbSaveList FButton]\nPicture = @dot.png\n"_s);
    const auto read = readDesign(writeDesign({control}));
    ASSERT_TRUE(read.ok());
    EXPECT_EQ(read->first().properties.readPicture(u"Picture"_s).size(), QSize(3, 2));
}

} // namespace vistrel
