#include "platform/profile_files.h"

#include "platform/folders.h"
#include "platform/host_files.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

Result<void> replaceFile(const QString& path, const QByteArray& bytes)
{
    QSaveFile file(path);
    if (file.open(QSaveFile::WriteOnly) && file.write(bytes) == bytes.size() && file.commit()) return {};
    return Error{Error::Kind::Io, path + u": "_s + file.errorString(), {}};
}

} // namespace

ProfileFiles ProfileFiles::host() { return {programFolder(), userConfigFolder(), CodePage::host()}; }

ProfileFiles::ProfileFiles(QString programFolder, QString userFolder, CodePage codePage)
    : m_programFolder(std::move(programFolder)),
      m_userFolder(std::move(userFolder)),
      m_codePage(std::move(codePage))
{
}

Profile ProfileFiles::read(const QString& path) const
{
    const auto profile = load(path);
    return profile ? *profile : Profile(m_codePage);
}

Result<void> ProfileFiles::write(const QString& path, const QString& section,
                                 const QList<Entry>& entries) const
{
    auto profile = load(path);
    if (!profile) return profile.error();
    const QByteArray before = profile->bytes();
    for (const Entry& entry : entries)
        profile->setValue(section, entry.key, entry.value);
    if (profile->bytes() == before) return {};
    const QString target = pathForWriting(path);
    if (target != path) QDir().mkpath(m_userFolder);
    return replaceFile(target, profile->bytes());
}

QString ProfileFiles::pathForWriting(const QString& path) const
{
    const QFileInfo info(path);
    const bool isInProgramFolder = QDir::cleanPath(info.absolutePath()) == QDir::cleanPath(m_programFolder);
    if (!isInProgramFolder || isWritable(m_programFolder)) return path;
    return QDir(m_userFolder).filePath(info.fileName());
}

Result<Profile> ProfileFiles::load(const QString& path) const
{
    const QString copy = pathForWriting(path);
    const QString source = hostFiles().exists(copy) ? copy : path;
    if (!hostFiles().exists(source)) return Profile(m_codePage);
    const auto bytes = hostFiles().read(source);
    if (!bytes) return bytes.error();
    return Profile(m_codePage, *bytes);
}

} // namespace vistrel
