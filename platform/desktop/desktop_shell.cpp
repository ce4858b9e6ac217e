#include "platform/desktop/desktop_shell.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QMimeDatabase>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

#include <array>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

struct SettingsProgram {
    QString name;
    QStringList arguments;
};

const std::array<SettingsProgram, 6>& networkSettings()
{
    static const std::array<SettingsProgram, 6> programs{{
        {u"gnome-control-center"_s, {u"network"_s}},
        {u"systemsettings"_s, {u"kcm_proxy"_s}},
        {u"kcmshell6"_s, {u"kcm_proxy"_s}},
        {u"kcmshell5"_s, {u"proxy"_s}},
        {u"xfce4-settings-manager"_s, {}},
        {u"nm-connection-editor"_s, {}},
    }};
    return programs;
}

/// True when the desktop knows a program for files like this one. Opening would not tell: it hands the file
/// to a script that always starts.
bool hasProgramFor(const QString& path)
{
    constexpr int limitMs = 3000;
    QProcess query;
    query.start(u"xdg-mime"_s, {u"query"_s, u"default"_s, QMimeDatabase().mimeTypeForFile(path).name()});
    return query.waitForFinished(limitMs) && !query.readAllStandardOutput().trimmed().isEmpty();
}

QString helpEdition(const QString& book)
{
    const QFileInfo info(book);
    const QString page = info.dir().filePath(info.completeBaseName() + u"/index.html"_s);
    const bool isReadable = info.isFile() && hasProgramFor(book);
    return isReadable || !QFileInfo::exists(page) ? book : page;
}

/// Empty for what is neither an existing file or folder nor a web address.
QUrl urlOf(const QString& target)
{
    const QFileInfo info(target);
    if (info.exists()) return QUrl::fromLocalFile(info.absoluteFilePath());
    const QUrl address(target);
    const bool isWebAddress = address.scheme() == "http"_L1 || address.scheme() == "https"_L1;
    return isWebAddress ? address : QUrl();
}

} // namespace

void DesktopShell::open(WindowHandle /*owner*/, const QString& target)
{
    const bool isHelpBook = target.endsWith(u".chm"_s, Qt::CaseInsensitive);
    const QUrl url = urlOf(isHelpBook ? helpEdition(target) : target);
    if (!url.isEmpty()) QDesktopServices::openUrl(url);
}

void DesktopShell::internetOptions(WindowHandle /*owner*/)
{
    for (const SettingsProgram& program : networkSettings()) {
        const QString path = QStandardPaths::findExecutable(program.name);
        if (path.isEmpty()) continue;
        QProcess::startDetached(path, program.arguments);
        return;
    }
}

} // namespace vistrel
