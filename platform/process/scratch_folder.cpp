#include "platform/process/scratch_folder.h"

#include <QDir>
#include <QRegularExpression>
#include <QThread>

#include <cstdlib>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr int kDeleteTries = 20;
constexpr unsigned long kDeletePauseMs = 50;

/// When the process was started, in clock ticks since the machine's start; empty when it does not run. Tells
/// a process from a later one with the same id.
QByteArray startTime(qint64 processId)
{
    QFile file(u"/proc/%1/stat"_s.arg(processId));
    if (!file.open(QIODevice::ReadOnly)) return {};
    const QByteArray text = file.readAll();
    return text.mid(text.lastIndexOf(')') + 2).split(' ').value(19); // Field 22; the name may hold anything.
}

QString prefix() { return u"vistrel-browser-"_s; }

void removeFolder(const QString& path)
{
    for (int i = 0; i < kDeleteTries && !QDir(path).removeRecursively(); ++i)
        QThread::msleep(kDeletePauseMs);
}

} // namespace

Result<std::unique_ptr<ScratchFolder>> ScratchFolder::create(const std::optional<Account>& account)
{
    const auto self = qint64(::getpid());
    const QString model = QDir::tempPath() + u"/%1%2-%3-XXXXXX"_s.arg(prefix()).arg(self).arg(
                                                 QLatin1StringView(startTime(self)));
    QByteArray name = QFile::encodeName(model);
    if (::mkdtemp(name.data()) == nullptr)
        return Error{Error::Kind::Io,
                     u"no folder could be made in "_s + QDir::tempPath() + u": "_s + qt_error_string(),
                     {}};
    std::unique_ptr<ScratchFolder> folder(new ScratchFolder(QFile::decodeName(name), account));
    // The account may pass through, not write: what lies here cannot be replaced by the browser.
    if (account) ::chmod(name.constData(), S_IRWXU | S_IXGRP | S_IXOTH);
    return folder;
}

ScratchFolder::ScratchFolder(QString path, std::optional<Account> account)
    : m_path(std::move(path)), m_account(account)
{
}

ScratchFolder::~ScratchFolder() { removeFolder(m_path); }

Result<QString> ScratchFolder::makeSubfolder(const QString& name)
{
    const QString path = m_path + u'/' + name;
    if (!QDir().mkpath(path) || (m_account && !m_account->takeOver(path)))
        return Error{Error::Kind::Io, path + u" cannot be made: "_s + qt_error_string(), {}};
    return path;
}

Result<QString> ScratchFolder::copyIn(const QString& source, const QString& name)
{
    const QString path = m_path + u'/' + name;
    QFile::remove(path);
    QFile file(source);
    if (!file.copy(path)) return Error{Error::Kind::Io, source + u": "_s + file.errorString(), {}};
    return handOver(path);
}

Result<QString> ScratchFolder::write(const QByteArray& bytes, const QString& name)
{
    QFile file(m_path + u'/' + name);
    QFile::remove(file.fileName());
    const bool written = file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
    file.close();
    if (!written || file.error() != QFileDevice::NoError)
        return Error{Error::Kind::Io, file.fileName() + u": "_s + file.errorString(), {}};
    return handOver(file.fileName());
}

Result<QString> ScratchFolder::handOver(const QString& path)
{
    QFile::setPermissions(path, QFile::ReadOwner);
    if (m_account && !m_account->takeOver(path))
        return Error{Error::Kind::Io, path + u" cannot be handed to the browser's account"_s, {}};
    return path;
}

void sweepScratchFolders()
{
    static const QRegularExpression pattern(u"^vistrel-browser-(\\d+)-(\\d+)-"_s);
    const QDir folder(QDir::tempPath());
    for (const QFileInfo& entry : folder.entryInfoList({prefix() + u'*'}, QDir::Dirs | QDir::NoSymLinks)) {
        const auto match = pattern.match(entry.fileName());
        if (!match.hasMatch() || entry.ownerId() != ::geteuid()) continue;
        if (startTime(match.captured(1).toLongLong()) == match.captured(2).toLatin1()) continue;
        removeFolder(entry.filePath());
    }
}

} // namespace vistrel
