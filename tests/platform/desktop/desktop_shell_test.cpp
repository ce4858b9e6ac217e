#include "platform/desktop/desktop_shell.h"

#include "tests/platform/desktop/opened_url.h"
#include "tests/support/temp_folder.h"

#include <QDir>
#include <QElapsedTimer>
#include <QThread>

using namespace Qt::StringLiterals;
using namespace vistrel;

namespace
{

class DesktopShellTest : public testing::Test
{
protected:
    DesktopShellTest() { qputenv("PATH", QFile::encodeName(m_folder.path({})) + ":/usr/bin:/bin"); }
    ~DesktopShellTest() override { qputenv("PATH", m_oldPath); }

    /// Puts a program first on PATH.
    void install(const QString& name, const QByteArray& script) const
    {
        const QString path = m_folder.write(name, "#!/bin/sh\n" + script);
        QFile::setPermissions(path, QFile::Permission(0x7700));
    }

    [[nodiscard]] QUrl open(const QString& target)
    {
        test::OpenedUrl desktop;
        m_shell.open(nullptr, target);
        return desktop.opened;
    }

    [[nodiscard]] QUrl fileUrl(const QString& name) const { return QUrl::fromLocalFile(m_folder.path(name)); }

    test::TempFolder m_folder;
    QByteArray m_oldPath = qgetenv("PATH");
    DesktopShell m_shell;
};

} // namespace

TEST_F(DesktopShellTest, OpensFilesFoldersAndWebAddresses)
{
    const QString file = m_folder.write(u"a#b?.txt"_s, "x");
    EXPECT_EQ(open(file), QUrl::fromLocalFile(file));
    EXPECT_EQ(open(m_folder.path({})), fileUrl({}));
    EXPECT_EQ(open(u"https://example.com/"_s), QUrl(u"https://example.com/"_s));
    for (const QString& target :
         {QString(), m_folder.path(u"none"_s), u"example.com"_s, u"file:///etc/passwd"_s})
        EXPECT_EQ(open(target), QUrl()) << target.toStdString();
}

TEST_F(DesktopShellTest, AHelpBookThatCannotBeShownOpensAsPages)
{
    const QString book = m_folder.path(u"help.chm"_s);
    install(u"xdg-mime"_s, "");
    EXPECT_EQ(open(book), QUrl()) << "neither is there";

    QDir().mkpath(m_folder.path(u"help"_s));
    (void)m_folder.write(u"help/index.html"_s, "x");
    EXPECT_EQ(open(book), fileUrl(u"help/index.html"_s)) << "no book";

    (void)m_folder.write(u"help.chm"_s, "ITSF");
    EXPECT_EQ(open(book), fileUrl(u"help/index.html"_s)) << "no program for the book";

    install(u"xdg-mime"_s, "echo reader.desktop");
    EXPECT_EQ(open(book), fileUrl(u"help.chm"_s));
}

TEST_F(DesktopShellTest, InternetOptionsStartsTheFirstSettingsProgramThatExists)
{
    qputenv("PATH", QFile::encodeName(m_folder.path({})));
    m_shell.internetOptions(nullptr); // None is there: nothing happens.

    const QByteArray note = "echo \"$0 $*\" > '" + QFile::encodeName(m_folder.path(u"started"_s)) + "'\n";
    install(u"nm-connection-editor"_s, note);
    install(u"kcmshell5"_s, note);
    m_shell.internetOptions(nullptr);

    QElapsedTimer waiting;
    waiting.start();
    while (!m_folder.read(u"started"_s).endsWith('\n') && waiting.elapsed() < 10'000)
        QThread::msleep(10);
    EXPECT_EQ(m_folder.read(u"started"_s), QFile::encodeName(m_folder.path(u"kcmshell5"_s)) + " proxy\n");
}
