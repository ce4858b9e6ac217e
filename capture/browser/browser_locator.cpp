#include "capture/browser/browser_locator.h"

#include <QFileInfo>
#include <QStandardPaths>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

// Programs behind a distribution's start script come first: a script between us and the browser only adds a
// shell.
QStringList knownPlaces()
{
    return {u"/usr/lib/chromium/chromium-headless-shell"_s, u"/usr/lib/chromium/chromium"_s};
}

QStringList knownNames()
{
    return {u"chromium-headless-shell"_s, u"chrome-headless-shell"_s, u"headless_shell"_s, u"chromium"_s,
            u"chromium-browser"_s,        u"google-chrome-stable"_s,  u"google-chrome"_s,  u"chrome"_s,
            u"microsoft-edge"_s,          u"brave-browser"_s};
}

bool isProgram(const QString& path)
{
    const QFileInfo file(path);
    return file.isFile() && file.isExecutable();
}

} // namespace

Result<QString> locateBrowser(const QString& named)
{
    if (!named.isEmpty()) {
        const QString path = named.contains(u'/') ? named : QStandardPaths::findExecutable(named);
        if (isProgram(path)) return path;
        return Error{Error::Kind::Io, named + u" is no program that can be started"_s, {}};
    }
    for (const QString& path : knownPlaces()) {
        if (isProgram(path)) return path;
    }
    for (const QString& name : knownNames()) {
        const QString path = QStandardPaths::findExecutable(name);
        if (!path.isEmpty()) return path;
    }
    return Error{Error::Kind::Io,
                 u"no browser was found; install chromium-headless-shell or chromium, or name one"_s,
                 {}};
}

} // namespace vistrel
