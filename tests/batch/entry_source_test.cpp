#include "batch/entry_source.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sstream>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

QList<Entry> entriesOf(const std::string& list)
{
    std::istringstream input(list);
    EntryReader reader(input, u"-"_s);
    QList<Entry> entries;
    while (const auto entry = reader.next())
        entries.append(*entry);
    return entries;
}

TEST(EntryReader, TakesEitherLineEndingAndDropsWhatIsNoEntry)
{
    const auto entries = entriesOf("* comment\r\nhttp://a/\n\n  x \r\n \tb.html\t\xC2\xA0\r\n  * more\nlast");
    ASSERT_EQ(entries.size(), 3);
    EXPECT_EQ(entries[0].text, u"http://a/"_s);
    EXPECT_EQ(entries[0].line, 2);
    EXPECT_EQ(entries[1].text, u"b.html"_s);
    EXPECT_EQ(entries[1].line, 5);
    EXPECT_EQ(entries[2].text, u"last"_s);
    EXPECT_EQ(entries[2].line, 7);
}

TEST(EntryReader, AByteOrderMarkBelongsToTheFileNotToTheFirstEntry)
{
    const auto entries = entriesOf("\xEF\xBB\xBFhttp://\xC3\xA4/\n");
    ASSERT_EQ(entries.size(), 1);
    EXPECT_EQ(entries[0].text, u"http://ä/"_s);
    EXPECT_TRUE(entriesOf("\xEF\xBB\xBF* comment\n").isEmpty());
}

TEST(EntryReader, ABadLineIsNamedAndTheRestGoesOn)
{
    const std::string tooLong(size_t(EntryReader::kLongestLine) + 1, 'a');
    const auto entries =
        entriesOf("http://a/\nhttp://\xFF/\n" + tooLong + "\nhttp://b/\n" + std::string("x\0y", 3));
    ASSERT_EQ(entries.size(), 5);
    EXPECT_TRUE(entries[0].problem.isEmpty());
    EXPECT_TRUE(entries[1].problem.contains(u"UTF-8"_s));
    EXPECT_TRUE(entries[2].problem.contains(u"longer"_s));
    EXPECT_LT(entries[2].text.size(), 200);
    EXPECT_TRUE(entries[3].problem.isEmpty());
    EXPECT_EQ(entries[3].line, 4);
    EXPECT_TRUE(entries[4].problem.contains(u"NUL"_s));
}

TEST(EntryReader, WhatIsNoListIsToldFromOne)
{
    const QList<std::pair<std::string, QString>> files{{"\n \t<!DocType HTML>\n<p>http://a/", u"HTML"_s},
                                                       {"\xEF\xBB\xBF<HTML lang=de>", u"HTML"_s},
                                                       {"<?xml version='1.0'?><urlset/>", u"--sitemap"_s},
                                                       {"<sitemapindex>", u"--sitemap"_s},
                                                       {std::string("GIF89a\0\1", 8), u"text"_s},
                                                       {std::string("\xFF\xFEh\0t\0t\0p\0", 10), u"UTF-8"_s},
                                                       {"%PDF-1.7\n1 0 obj", u"text"_s},
                                                       {"* <html>\nhttp://a/?<html>", {}},
                                                       {"<https://a.example/>", {}},
                                                       {"", {}}};
    for (const auto& [bytes, reason] : files) {
        std::istringstream input(bytes);
        const auto checked = EntryReader(input, u"x.txt"_s).check();
        ASSERT_EQ(checked.ok(), reason.isEmpty()) << bytes;
        if (checked) continue;
        EXPECT_TRUE(checked.error().message.contains(u"x.txt"_s) && checked.error().message.contains(reason))
            << checked.error().message.toStdString();
    }
}

TEST(EntrySource, NumbersTheEntriesOfAllListsAndThenTheAddresses)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(u"list.txt"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("one\r\ntwo\r\n");
    file.close();
    Plan plan;
    plan.lists = {u"-"_s, file.fileName()};
    plan.addresses = {u"x"_s, u"three"_s};
    std::istringstream input("zero\n* none\n");
    EntrySource source(plan, input);
    QStringList seen;
    for (auto entry = source.next(); entry && *entry; entry = source.next())
        seen.append(u"%1 %2:%3"_s.arg((*entry)->number).arg((*entry)->text).arg((*entry)->line));
    EXPECT_EQ(seen, (QStringList{u"1 zero:1"_s, u"2 one:1"_s, u"3 two:2"_s, u"4 three:2"_s}));
}

TEST(EntrySource, AListThatCannotBeReadIsAnErrorBeforeTheRun)
{
    Plan plan;
    plan.lists = {u"-"_s, u"/no/such/list.txt"_s};
    const auto checked = EntrySource::check(plan);
    ASSERT_FALSE(checked);
    EXPECT_TRUE(checked.error().message.contains(u"/no/such/list.txt"_s));
    plan.lists = {u"/"_s};
    EXPECT_FALSE(EntrySource::check(plan));
    std::istringstream page("<html>");
    plan.lists = {u"-"_s};
    EXPECT_TRUE(EntrySource::check(plan)) << "what can be read once is read once";
    EXPECT_FALSE(EntrySource(plan, page).next());
}

} // namespace

} // namespace vistrel
