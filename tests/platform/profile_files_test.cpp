#include "platform/profile_files.h"

#include "platform/shortcut_file.h"
#include "platform/text.h"
#include "tests/support/plain_user.h"
#include "tests/support/temp_folder.h"

#include <QDir>

using namespace Qt::StringLiterals;
using namespace vistrel;
using vistrel::test::PlainUser;

namespace
{

constexpr QFile::Permissions open = QFile::Permission(0x7777);
constexpr QFile::Permissions readOnly = QFile::Permission(0x5555);

class ProfileFilesTest : public testing::Test
{
protected:
    ProfileFilesTest()
    {
        for (const QString& folder :
             {m_folder.path({}), m_folder.path(u"program"_s), m_folder.path(u"user"_s)}) {
            QDir().mkpath(folder);
            QFile::setPermissions(folder, open);
        }
    }
    ~ProfileFilesTest() override { QFile::setPermissions(m_folder.path(u"program"_s), open); }

    Result<void> write(const QString& name, const QString& value)
    {
        return m_files.write(m_folder.path(name), u"Main"_s, {{u"Key"_s, value}});
    }
    [[nodiscard]] QString key() const
    {
        return m_files.read(m_folder.path(u"program/Config.Ini"_s)).value(u"Main", u"Key");
    }

    test::TempFolder m_folder;
    ProfileFiles m_files{m_folder.path(u"program"_s), m_folder.path(u"user/vistrel"_s), CodePage("UTF-8")};
};

} // namespace

TEST_F(ProfileFilesTest, AMissingFileReadsAsEmptyAndIsCreatedByAWrite)
{
    EXPECT_EQ(key(), QString());
    ASSERT_TRUE(write(u"program/Config.Ini"_s, u"1"_s));
    EXPECT_EQ(m_folder.read(u"program/Config.Ini"_s), "[Main]\r\nKey=1\r\n");
    EXPECT_EQ(QDir(m_folder.path(u"program"_s)).entryList(QDir::Files).size(), 1)
        << "no temporary file is left";
    EXPECT_FALSE(write(u"none/Config.Ini"_s, u"1"_s)) << "folders are not created";
}

TEST_F(ProfileFilesTest, AFailedWriteLeavesTheOldFile)
{
    const QString path = m_folder.write(u"user/Other.Ini"_s, "[Main]\nKey=0\n");
    QFile::setPermissions(m_folder.write(u"user/secret"_s, "[Main]\nOther=1\n"), {});
    {
        const PlainUser plain;
        EXPECT_FALSE(write(u"user/secret"_s, u"1"_s)) << "what cannot be read is not replaced";
    }
    QFile::setPermissions(m_folder.path(u"user"_s), readOnly);
    {
        const PlainUser plain;
        const auto written = write(u"user/Other.Ini"_s, u"1"_s);
        ASSERT_FALSE(written);
        EXPECT_TRUE(written.error().message.startsWith(path + u": "_s));
    }
    QFile::setPermissions(m_folder.path(u"user/secret"_s), QFile::ReadOwner);
    EXPECT_EQ(m_folder.read(u"user/secret"_s), "[Main]\nOther=1\n");
    EXPECT_EQ(m_folder.read(u"user/Other.Ini"_s), "[Main]\nKey=0\n");
    QFile::setPermissions(m_folder.path(u"user"_s), open);
}

TEST_F(ProfileFilesTest, FilesOfAClosedProgramFolderAreWrittenToTheUsersCopy)
{
    ASSERT_TRUE(write(u"program/Config.Ini"_s, u"installed"_s));
    QFile::setPermissions(m_folder.path(u"program"_s), readOnly);
    const PlainUser plain;
    EXPECT_EQ(key(), u"installed"_s) << "until there is a copy";
    ASSERT_TRUE(write(u"program/Config.Ini"_s, u"mine"_s));
    EXPECT_EQ(key(), u"mine"_s);
    EXPECT_EQ(m_folder.read(u"program/Config.Ini"_s), "[Main]\r\nKey=installed\r\n");
    EXPECT_EQ(m_folder.read(u"user/vistrel/Config.Ini"_s), "[Main]\r\nKey=mine\r\n");

    ASSERT_TRUE(write(u"user/Config.Ini"_s, u"elsewhere"_s));
    EXPECT_EQ(m_folder.read(u"user/Config.Ini"_s), "[Main]\r\nKey=elsewhere\r\n");
}

TEST_F(ProfileFilesTest, AShortcutHoldsItsAddress)
{
    const QString path = m_folder.write(u"a.url"_s, "[InternetShortcut]\r\nURL=https://example.com/?a=b\r\n");
    EXPECT_EQ(ReadShortcutUrl(path + QChar(u'\0') + u"b"_s, m_files), u"https://example.com/?a=b"_s);
    EXPECT_EQ(ReadShortcutUrl(m_folder.path(u"none.url"_s), m_files), QString());
    EXPECT_EQ(ReadShortcutUrl(m_folder.path({}), m_files), QString());
}

TEST(Text, CutsAtTheFirstNulAndTrimsOnlyBlanks)
{
    EXPECT_EQ(StripNull(u"ab\0c\0"_s), u"ab"_s);
    EXPECT_EQ(StripNull(u"\0c"_s), QString());
    EXPECT_EQ(trimBlanks(u"  \ta b\0  "_s), u"\ta b\0"_s);
    EXPECT_EQ(trimBlanks(u"   "_s), QString());
}
