#include "convert/entry_list.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace vistrel;

TEST(EntryList, KeepsEveryLinesPlaceAndCountsTheKeptOnes)
{
    const EntryList list = readEntryList(u"* comment\r\nhttp://a\r\n\r\nx\r\n  http://b  \r\nhttp://a\r\n"_s);
    EXPECT_EQ(list.entries, QStringList({QString(), u"http://a"_s, QString(), QString(), u"http://b"_s,
                                         u"http://a"_s, QString()}));
    EXPECT_EQ(list.count, 3);
    EXPECT_EQ(readEntryList(QString()).entries, QStringList{QString()});
}

TEST(EntryList, SplitsAtPairsOfReturnAndFeedOnly)
{
    const EntryList list = readEntryList(u"ab\ncd\ref\r\r\ngh"_s);
    EXPECT_EQ(list.entries, QStringList({u"ab\ncd\ref\r"_s, u"gh"_s}));
    EXPECT_EQ(list.count, 2);
}

TEST(EntryList, DropsShortAndCommentLinesAfterTrimmingBlanksOnly)
{
    const std::pair<QString, QString> rows[] = {
        {u"ab"_s, u"ab"_s},
        {u" a "_s, QString()},
        {u"   "_s, QString()},
        {u"* "_s, QString()},
        {u"   *http://a"_s, QString()},
        {u"\t*http://a"_s, u"\t*http://a"_s},
        {u"\u00a0a b\t"_s, u"\u00a0a b\t"_s},
    };
    for (const auto& [line, entry] : rows)
        EXPECT_EQ(entryOfLine(line), entry) << line.toStdString();
}
