#include "platform/host_files.h"

#include "tests/support/plain_user.h"
#include "tests/support/temp_folder.h"

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;
using vistrel::Error;
using vistrel::hostFiles;

namespace
{

class HostFilesTest : public testing::Test
{
protected:
    HostFilesTest() { EXPECT_EQ(::mkfifo(QFile::encodeName(m_pipe).constData(), 0600), 0); }

    vistrel::test::TempFolder m_folder;
    QString m_pipe = m_folder.path(u"pipe"_s);
};

} // namespace

TEST_F(HostFilesTest, OnlyAFileWithALengthExists)
{
    const QString empty = m_folder.write(u"empty"_s, "");
    EXPECT_TRUE(hostFiles().exists(empty));
    EXPECT_EQ(*hostFiles().length(empty), 0);
    for (const QString& path :
         {m_folder.path({}), m_pipe, u"/dev/zero"_s, m_folder.path(u"none"_s), u"http://example.com/"_s,
          u":/qt-project.org/logo"_s, QString(), empty + QChar(u'\0')})
        EXPECT_FALSE(hostFiles().exists(path) || hostFiles().length(path)) << path.toStdString();
}

TEST_F(HostFilesTest, WritesFromTheStartKeepsALongerTailAndRemoves)
{
    const QString path = m_folder.path(u"new"_s);
    ASSERT_TRUE(hostFiles().writeFromStart(path, "one"));
    ASSERT_TRUE(hostFiles().writeFromStart(path, "TW"));
    EXPECT_EQ(*hostFiles().read(path), "TWe");
    EXPECT_EQ(hostFiles().shortPath(path), path);

    const QString withNul = path + QChar(u'\0') + u"b"_s; // Not the file named by its start.
    EXPECT_FALSE(hostFiles().read(withNul));
    EXPECT_FALSE(hostFiles().writeFromStart(withNul, "gone"));
    EXPECT_FALSE(hostFiles().remove(withNul));
    EXPECT_EQ(m_folder.read(u"new"_s), "TWe");
    ASSERT_TRUE(hostFiles().remove(path));
    EXPECT_EQ(hostFiles().shortPath(path), QString());
}

TEST_F(HostFilesTest, AFileThatIsOnlyWrittenInPartIsNotLeftBehind)
{
    rlimit before{};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
    const rlimit small{4, before.rlim_max};
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
    const auto written = hostFiles().writeFromStart(m_folder.path(u"new"_s), "longer");
    ::setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);
    EXPECT_FALSE(written);
    EXPECT_FALSE(hostFiles().exists(m_folder.path(u"new"_s)));
}

TEST_F(HostFilesTest, FailuresNameThePathAndTheReason)
{
    const QString missing = m_folder.path(u"no/file"_s);
    const auto read = hostFiles().read(missing);
    ASSERT_FALSE(read);
    EXPECT_EQ(read.error().kind, Error::Kind::Io);
    EXPECT_EQ(read.error().message, missing + u": No such file or directory"_s);
    EXPECT_FALSE(hostFiles().writeFromStart(missing, "x"));
    EXPECT_FALSE(hostFiles().remove(missing));
    EXPECT_FALSE(hostFiles().remove(m_folder.path({}))) << "a folder";
    EXPECT_FALSE(hostFiles().read(m_pipe)) << "would wait for ever";
    EXPECT_FALSE(hostFiles().writeFromStart(m_pipe, "x"));
}

TEST_F(HostFilesTest, DoesNotRemoveAWriteProtectedFile)
{
    const QString path = m_folder.write(u"kept"_s, "x");
    QFile::setPermissions(path, QFile::ReadOwner | QFile::ReadOther);
    QFile::setPermissions(m_folder.path({}), QFile::Permission(0x7777));
    const vistrel::test::PlainUser plain;
    const auto removed = hostFiles().remove(path);
    ASSERT_FALSE(removed);
    EXPECT_EQ(removed.error().message, path + u": The file is write-protected"_s);
    EXPECT_TRUE(hostFiles().exists(path));
}
