#include "platform/path_style.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using vistrel::PathStyle;

TEST(PathStyle, EndsAFolderWithExactlyOneSeparatorInBothStyles)
{
    EXPECT_EQ(PathStyle::backslash().withTrailingSeparator(u"C:\\"_s), u"C:\\"_s);
    EXPECT_EQ(PathStyle::backslash().withTrailingSeparator(u"C:\\out"_s), u"C:\\out\\"_s);
    EXPECT_EQ(PathStyle::slash().withTrailingSeparator(u"/"_s), u"/"_s);
    EXPECT_EQ(PathStyle::slash().withTrailingSeparator(u"/out"_s), u"/out/"_s);
    EXPECT_EQ(PathStyle::slash().withTrailingSeparator(QString()), QString());
}
