#include "convert/add_files.h"
#include "tests/convert/recording_window.h"

#include <gtest/gtest.h>

using namespace vistrel;
using namespace vistrel::test;

class AddFilesTest : public testing::Test
{
protected:
    /// What AddFiles makes of an empty list when the dialog answers so.
    QString added(const QString& answer, PathStyle style = PathStyle::backslash())
    {
        window.list.clear();
        window.dialogAnswers = {answer};
        EXPECT_FALSE(AddFiles(window, readShortcutUrl, style));
        return window.list;
    }

    CallLog log;
    RecordingWindow window{log};
    ShortcutReader readShortcutUrl = [](const QString& path) {
        return path.contains(u"empty"_s) ? QString() : u"address of "_s + path;
    };
};

TEST_F(AddFilesTest, AsksForPagesAndLeavesTheCaretAtTheEnd)
{
    const std::string dialog = R"(dialog "" must exist 1, multi 1, filter )"
                               "All HTML Files & URLs(*.htm;*.html;*.mht;*.mhtml;*.txt;*.url)"
                               R"(|*.htm;*.html;*.mht;*.mhtml;*.txt;*.url, title "", default .htm)";
    window.dialogAnswers = {std::nullopt};
    AddFiles(window, readShortcutUrl, PathStyle::slash());
    EXPECT_EQ(window.list, QString());
    EXPECT_FALSE(log.lines().ends_with("focus list\n"));
    log.clear();
    EXPECT_EQ(added(u"C:\\a.htm\0\0\0"_s), u"\r\nC:\\a.htm\r\n"_s);
    EXPECT_EQ(log.lines(), dialog + "\nlist caret to end\nfocus list\n");
}

TEST_F(AddFilesTest, PutsTheFolderInFrontOfEachName)
{
    EXPECT_EQ(added(u"C:\\p\0b.htm\0a.htm\0c.htm\0\0left over\0\0"_s),
              u"\r\nC:\\p\\b.htm\r\n\r\nC:\\p\\a.htm\r\n\r\nC:\\p\\c.htm\r\n"_s);
    EXPECT_EQ(added(u"C:\\\0a.htm\0\0"_s), u"\r\nC:\\a.htm\r\n"_s);
    EXPECT_EQ(added(u"/p\0a.htm\0"_s, PathStyle::slash()), u"\r\n/p/a.htm\r\n"_s);
}

TEST_F(AddFilesTest, AddsTheAddressThatAShortcutHolds)
{
    EXPECT_EQ(added(u"C:\\p\0x.URL\0empty.url\0\0"_s), u"\r\naddress of C:\\p\\x.URL\r\n\r\n\r\n"_s);
    QString path = u"x.url"_s;
    AddListEntry(window, readShortcutUrl, path);
    EXPECT_EQ(path, u"address of x.url"_s);
    path = u".url"_s;
    AddListEntry(window, readShortcutUrl, path);
    EXPECT_EQ(path, u".url"_s);
}
