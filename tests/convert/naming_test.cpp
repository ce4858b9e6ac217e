#include "convert/entry_files.h"
#include "convert/naming.h"
#include "convert/output_path.h"
#include "platform/runtime_error.h"
#include "tests/convert/recording_window.h"
#include "tests/support/memory_files.h"

#include <gtest/gtest.h>

using namespace vistrel;
using namespace vistrel::test;

TEST(Naming, TakesALocalFilesOwnNameInBothStyles)
{
    const std::tuple<PathStyle, QString, QString> rows[] = {
        {PathStyle::backslash(), u"C:\\pages\\index.html"_s, u"index"_s},
        {PathStyle::backslash(), u"C:\\my.pages\\index"_s, u"index"_s},
        {PathStyle::backslash(), u"C:/pages/a.htm"_s, u"C:/pages/a"_s},
        {PathStyle::backslash(), u"a?.b.htm"_s, u"a?.b"_s},
        {PathStyle::slash(), u"/my.pages/index"_s, u"index"_s},
        {PathStyle::slash(), u"/pages/C:\\a.htm"_s, u"C:\\a"_s},
    };
    for (const auto& [style, file, name] : rows) {
        MemoryFiles files(style);
        files.contents[file] = {};
        EXPECT_EQ(urlSchemeName(file, files, style), name) << file.toStdString();
    }
}

TEST(Naming, ReplacesTheSameNineCharactersOfAnAddressInBothStyles)
{
    for (const PathStyle style : {PathStyle::backslash(), PathStyle::slash()}) {
        EXPECT_EQ(urlSchemeName(u"\\?/:*|<>\""_s, MemoryFiles(), style), u"_________"_s);
        EXPECT_EQ(urlSchemeName(u"http://A.b/c d.png?e=1&f=%20#g"_s, MemoryFiles(), style),
                  u"http___A.b_c d.png_e=1&f=%20#g"_s);
    }
    EXPECT_EQ(extensionForImageType(4), u".tif"_s);
    EXPECT_EQ(extensionForImageType(5), QString()) << "an unknown type has none";
}

TEST(Naming, PutsTheCounterInAtEveryPlaceThatReadsLikeTheExtension)
{
    EXPECT_EQ(numberedPath(u"/x.png/a.png.png"_s, u".png"_s, 1), u"/x(1).png/a(1).png(1).png"_s);
    EXPECT_EQ(numberedPath(u"/x(1).png/a(1).png(1).png"_s, u".png"_s, 2), u"/x(2).png/a(2).png(2).png"_s);
    EXPECT_EQ(numberedPath(u"/a.PNG/b.png"_s, u".png"_s, 1), u"/a.PNG/b(1).png"_s);
    EXPECT_EQ(numberedPath(u"/a"_s, QString(), 1), u"/a"_s);
    EXPECT_EQ(thumbnailPath(u"/x.png/a(1).png"_s, u".png"_s), u"/x_T.png/a(1)_T.png"_s);
    EXPECT_EQ(thumbnailPath(u"/a"_s, QString()), u"/a"_s);
}

TEST(EntryFiles, GivesNoShortPathThatPassesTheLimit)
{
    MemoryFiles files;
    files.contents[u"/page.html"_s] = {};
    for (const auto& [length, expected] : {std::pair(259, 259), std::pair(260, 0)}) {
        files.shortPaths[u"/page.html"_s] = QString(length, u'x');
        EXPECT_EQ(GetShortPath(files, u"/page.html"_s).size(), expected);
    }
}

class OutputPathTest : public testing::Test
{
protected:
    std::optional<QString> choose(const QString& entry = u"http://a"_s)
    {
        return OutputPath(window, files, PathStyle::slash()).choose(entry, u".png"_s, 7);
    }

    CallLog log;
    RecordingWindow window{log};
    MemoryFiles files;
};

TEST_F(OutputPathTest, JoinsFolderNameAndExtensionWithNothingBetween)
{
    window.config->outputFolder = u"/out"_s;
    EXPECT_EQ(choose(), u"/outhttp___a.png"_s);
    window.config->nameAs = 1;
    EXPECT_EQ(choose(), u"/out7.png"_s);
    window.config->nameAs = 3;
    EXPECT_EQ(choose(), QString());
    EXPECT_EQ(log.lines(), "");
}

TEST_F(OutputPathTest, CountsToAFreeNameAndLetsEventsInBeforeEachTest)
{
    window.config->nameAs = 1;
    window.config->overwrite = 2;
    for (const QString& taken : {u"/out/7.png"_s, u"/out/7(1).png"_s})
        files.contents[taken] = {};
    EXPECT_EQ(choose(), u"/out/7(2).png"_s);
    EXPECT_EQ(log.lines(), "events\nevents\n");
    window.config->outputFolder = u"/x.png/"_s;
    files.contents[u"/x.png/7.png"_s] = {};
    EXPECT_EQ(choose(), u"/x(1).png/7(1).png"_s);
}

TEST_F(OutputPathTest, AsksAgainWithTheSameNameWhenTheUserKeepsTheFile)
{
    window.config->nameAs = 2;
    files.contents[u"/a.png"_s] = {};
    window.dialogAnswers = {u"/a.png"_s, u"/a.png"_s};
    window.questionAnswers = {false, true};
    EXPECT_EQ(choose(), u"/a.png"_s);
    EXPECT_TRUE(files.contents.isEmpty());
    EXPECT_EQ(log.lines(),
              R"(dialog "" must exist 0, multi 0, filter *.png Files|*.png, title "Save as", default .png
ask The file /a.png already exists.\r\nDo you want to overwrite?
dialog "/a.png" must exist 0, multi 0, filter *.png Files|*.png, title "Save as", default .png
ask The file /a.png already exists.\r\nDo you want to overwrite?
)");
}

TEST_F(OutputPathTest, DeletesWhatIsThereOrRaisesAnError)
{
    window.config->overwrite = 1;
    files.contents[u"/out/http___a.png"_s] = {};
    EXPECT_EQ(choose(), u"/out/http___a.png"_s);
    EXPECT_TRUE(files.contents.isEmpty());

    files.contents[u"/out/a.png"_s] = {};
    files.undeletable.insert(u"/out/a.png"_s);
    EXPECT_THROW(static_cast<void>(choose(u"a"_s)), RuntimeError);
    window.config->nameAs = 2;
    window.dialogAnswers = {u"/out/a.png"_s, std::nullopt};
    window.questionAnswers = {true};
    EXPECT_THROW(static_cast<void>(choose()), RuntimeError);
    EXPECT_EQ(choose(), std::nullopt) << "cancelled";
}
