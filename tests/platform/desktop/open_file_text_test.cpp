#include "platform/desktop/open_file_text.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace vistrel;

TEST(OpenFileText, FiltersShowTheirPatternsOnce)
{
    EXPECT_EQ(nameFilters(u"All HTML Files & URLs(*.htm;*.url)\0*.htm;*.url\0\0"_s),
              QStringList{u"All HTML Files & URLs (*.htm *.url)"_s});
    EXPECT_EQ(nameFilters(u"*.png Files\0*.png\0Text file(*.txt)\0*.txt\0\0"_s),
              (QStringList{u"*.png Files (*.png)"_s, u"Text file (*.txt)"_s}));
    EXPECT_EQ(nameFilters(u"\0\0"_s), QStringList());
}

TEST(OpenFileText, OneFileIsItsPathAndSeveralAreTheirFolderAndTheirNames)
{
    const std::tuple<QStringList, int, std::optional<QString>> rows[] = {
        {{u"/in/a.htm"_s}, 12, u"/in/a.htm\0\0\0"_s},
        {{u"/in/a.htm"_s}, 10, u"/in/a.htm\0"_s},
        {{u"/in/a.htm"_s}, 9, std::nullopt},
        {{u"/in/a"_s, u"/in/b"_s}, 10, u"/in\0a\0b\0\0\0"_s},
        {{u"/in/a"_s, u"/in/b"_s}, 9, u"/in\0a\0b\0\0"_s},
        {{u"/in/a"_s, u"/in/b"_s}, 8, std::nullopt},
        {{u"/a"_s, u"/b"_s}, 8, u"/\0a\0b\0\0\0"_s},
        {{u"/in/x/a"_s, u"/in/xy/b"_s}, 14, u"/in\0x/a\0xy/b\0\0"_s},
    };
    for (const auto& [paths, size, buffer] : rows)
        EXPECT_EQ(selectionBuffer(paths, size), buffer) << paths.first().toStdString() << ' ' << size;
}
