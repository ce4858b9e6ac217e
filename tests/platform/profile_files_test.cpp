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

class ProfileFilesTest : public testing::Test
{
protected:
    ProfileFilesTest()
    {
        QDir().mkpath(program());
        QDir().mkpath(user());
        QFile::setPermissions(m_folder.path({}), readable);
        QFile::setPermissions(user(), readable | QFile::WriteGroup | QFile::WriteOther);
    }
    ~ProfileFilesTest() override { QFile::setPermissions(program(), readable); }

    [[nodiscard]] QString program() const { return m_folder.path(u"program"_s); }
    [[nodiscard]] QString user() const { return m_folder.path(u"user"_s); }
    [[nodiscard]] QString config() const { return program() + u"/Config.Ini"_s; }
    [[nodiscard]] QString key() const { return m_files.read(config()).value(u"Main", u"Key"); }
    void closeProgramFolder() const
    {
        QFile::setPermissions(program(), QFile::Permissions(readable) & ~QFile::WriteOwner);
    }

    Result<void> write(const QString& value)
    {
        return m_files.write(config(), u"Main"_s, {{u"Key"_s, value}});
    }

    static constexpr QFile::Permissions readable =
        QFile::Permission(0x7755); // rwx for the owner, r-x for others
    test::TempFolder m_folder;
    ProfileFiles m_files{program(), user() + u"/vistrel"_s, CodePage("UTF-8")};
};

} // namespace

TEST_F(ProfileFilesTest, AMissingFileReadsAsEmptyAndIsCreatedByAWrite)
{
    EXPECT_EQ(key(), QString());
    ASSERT_TRUE(write(u"1"_s));
    EXPECT_EQ(m_folder.read(u"program/Config.Ini"_s), "[Main]\r\nKey=1\r\n");
    EXPECT_EQ(QDir(program()).entryList(QDir::Files).size(), 1) << "no temporary file is left";
}

TEST_F(ProfileFilesTest, AFailedWriteLeavesTheOldFile)
{
    const QString path = m_folder.write(u"Other.Ini"_s, "[Main]\nKey=0\n");
    Result<void> written;
    {
        QFile::setPermissions(m_folder.path({}), readable & ~QFile::Permissions(QFile::WriteOwner));
        const PlainUser plain;
        written = m_files.write(path, u"Main"_s, {{u"Key"_s, u"1"_s}});
    }
    QFile::setPermissions(m_folder.path({}), readable);
    ASSERT_FALSE(written);
    EXPECT_EQ(written.error().kind, Error::Kind::Io);
    EXPECT_TRUE(written.error().message.startsWith(path + u": "_s));
    EXPECT_EQ(m_folder.read(u"Other.Ini"_s), "[Main]\nKey=0\n");
}

TEST_F(ProfileFilesTest, AFileThatCannotBeReadIsNotReplaced)
{
    const QString path = m_folder.write(u"user/secret"_s, "[Main]\nOther=1\n");
    QFile::setPermissions(path, {});
    {
        const PlainUser plain;
        EXPECT_FALSE(m_files.write(path, u"Main"_s, {{u"Key"_s, u"1"_s}}));
    }
    QFile::setPermissions(path, QFile::ReadOwner);
    EXPECT_EQ(m_folder.read(u"user/secret"_s), "[Main]\nOther=1\n");
}

TEST_F(ProfileFilesTest, AClosedProgramFolderIsReadUntilTheUserHasACopy)
{
    ASSERT_TRUE(write(u"installed"_s));
    closeProgramFolder();
    const PlainUser plain;
    EXPECT_EQ(key(), u"installed"_s);
    ASSERT_TRUE(write(u"mine"_s));
    EXPECT_EQ(key(), u"mine"_s);
    EXPECT_EQ(m_folder.read(u"program/Config.Ini"_s), "[Main]\r\nKey=installed\r\n");
    EXPECT_EQ(m_folder.read(u"user/vistrel/Config.Ini"_s), "[Main]\r\nKey=mine\r\n");
}

TEST_F(ProfileFilesTest, OnlyFilesOfAClosedProgramFolderAreRedirected)
{
    const QString elsewhere = user() + u"/Config.Ini"_s;
    closeProgramFolder();
    const PlainUser plain;
    ASSERT_TRUE(m_files.write(elsewhere, u"Main"_s, {{u"Key"_s, u"1"_s}}));
    EXPECT_EQ(m_folder.read(u"user/Config.Ini"_s), "[Main]\r\nKey=1\r\n");
}

TEST_F(ProfileFilesTest, AShortcutHoldsItsAddress)
{
    const QString path = m_folder.write(u"a.url"_s, "[InternetShortcut]\r\nURL=https://example.com/?a=b\r\n");
    EXPECT_EQ(ReadShortcutUrl(path + QChar(u'\0') + u"b"_s, m_files), u"https://example.com/?a=b"_s);
    EXPECT_EQ(ReadShortcutUrl(m_folder.path(u"none.url"_s), m_files), QString());
    EXPECT_EQ(ReadShortcutUrl(program(), m_files), QString());
}

TEST(Text, CutsAtTheFirstNulAndTrimsOnlyBlanks)
{
    EXPECT_EQ(StripNull(u"abc"_s), u"abc"_s);
    EXPECT_EQ(StripNull(u"ab\0c\0"_s), u"ab"_s);
    EXPECT_EQ(StripNull(u"\0c"_s), QString());
    EXPECT_EQ(trimBlanks(u"  \ta b\0  "_s), u"\ta b\0"_s);
    EXPECT_EQ(trimBlanks(u"   "_s), QString());
}
