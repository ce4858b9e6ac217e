#include "app/util/mod_folders.h"

#include "tests/support/fake_file_dialogs.h"
#include "tests/support/temp_folder.h"

#include <QDir>

using namespace Qt::StringLiterals;
using namespace vistrel;

TEST(ModFolders, BrowsingShowsThePromptAndEndsTheFolderWithOneSeparator)
{
    test::FakeFileDialogs dialogs;
    const auto browse = [&](const QString& chosen, PathStyle style) {
        dialogs.chosen = chosen;
        return BrowseForFolder(dialogs, nullptr, QString(), style);
    };
    EXPECT_EQ(browse(u"C:\\out"_s, PathStyle::backslash()), u"C:\\out\\"_s);
    EXPECT_EQ(browse(u"C:\\"_s, PathStyle::backslash()), u"C:\\"_s);
    EXPECT_EQ(browse(u" /my out "_s, PathStyle::slash()), u"/my out/"_s);
    EXPECT_EQ(browse(u"/out\0x"_s, PathStyle::slash()), u"/out/"_s);
    EXPECT_EQ(dialogs.prompt, u"Choose an output folder: "_s);
    dialogs.confirms = false;
    EXPECT_EQ(BrowseForFolder(dialogs, nullptr, u"Where?"_s), QString());
    EXPECT_EQ(dialogs.prompt, u"Where?"_s);
}

TEST(ModFolders, TheOnlySpecialFolderIsTheDocumentsFolderWhichThenExists)
{
    const test::TempFolder home;
    const QByteArray oldHome = qgetenv("HOME");
    qputenv("HOME", QFile::encodeName(home.path({})));
    qunsetenv("XDG_CONFIG_HOME");
    (void)home.write(u".keep"_s, "");
    QDir().mkpath(home.path(u".config"_s));
    (void)home.write(u".config/user-dirs.dirs"_s, "XDG_DOCUMENTS_DIR=\"$HOME/My Papers\"\n");

    EXPECT_EQ(GetSpecialFolder(5), home.path(u"My Papers/"_s));
    EXPECT_TRUE(QDir(home.path(u"My Papers"_s)).exists());
    EXPECT_EQ(GetSpecialFolder(6), QString());
    qputenv("HOME", oldHome);
}
