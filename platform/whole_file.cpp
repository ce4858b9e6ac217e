#include "platform/whole_file.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <system_error>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

const QString kPrefix = u".vistrel-"_s;
const QString kEnding = u".part"_s;

WriteProblem::Cause causeOf(int error)
{
    switch (error) {
    case EEXIST: return WriteProblem::Cause::Exists;
    case ENOSPC:
    case EDQUOT: return WriteProblem::Cause::DiskFull;
    case ENOENT:
    case ENOTDIR:
    case EACCES:
    case EPERM:
    case EROFS: return WriteProblem::Cause::FolderGone;
    default: return WriteProblem::Cause::Other;
    }
}

QString reasonOf(int error) { return QString::fromStdString(std::generic_category().message(error)); }

WriteProblem problemWith(const QString& what, int error)
{
    return {causeOf(error), u"%1 cannot be written: %2"_s.arg(what, reasonOf(error))};
}

QString temporaryName()
{
    return kPrefix + QString::number(QRandomGenerator::system()->generate64(), 16) + kEnding;
}

/// Makes a new name in folder survive a power failure; some file systems refuse, and keep it anyway.
void syncFolder(const QString& folder)
{
    const int descriptor = ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0) return;
    ::fsync(descriptor);
    ::close(descriptor);
}

} // namespace

WholeFile::WholeFile(const QString& folder)
    : m_folder(folder),
      m_temporaryPath(QFile::encodeName(folder + u'/' + temporaryName())),
      m_descriptor(
          ::open(m_temporaryPath.constData(), O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0666)),
      m_errorNumber(m_descriptor < 0 ? errno : 0)
{
    if (m_descriptor >= 0) open(ReadWrite | Unbuffered);
}

WholeFile::~WholeFile()
{
    if (m_descriptor < 0) return;
    ::close(m_descriptor);
    if (m_hasTemporaryPath) ::unlink(m_temporaryPath.constData());
}

std::optional<WriteProblem> WholeFile::problem() const
{
    if (m_errorNumber == 0) return std::nullopt;
    return problemWith(u"a file in %1"_s.arg(m_folder), m_errorNumber);
}

qint64 WholeFile::readData(char* bytes, qint64 count)
{
    return ::pread(m_descriptor, bytes, size_t(count), pos());
}

qint64 WholeFile::writeData(const char* bytes, qint64 count)
{
    for (qint64 done = 0; done < count;) {
        const ssize_t written = ::pwrite(m_descriptor, bytes + done, size_t(count - done), pos() + done);
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) {
            if (m_errorNumber == 0) m_errorNumber = errno;
            setErrorString(reasonOf(m_errorNumber));
            return -1;
        }
        done += written;
    }
    m_size = std::max(m_size, pos() + count);
    return count;
}

std::optional<WriteProblem> WholeFile::moveTo(const QString& path, IfExists ifExists)
{
    if (m_errorNumber != 0) return problemWith(path, m_errorNumber);
    m_path = QFile::encodeName(path);
    const bool done = ::fdatasync(m_descriptor) == 0 && (ifExists == IfExists::Refuse ? link() : rename());
    if (!done) return problemWith(path, errno);
    syncFolder(m_folder);
    return std::nullopt;
}

void WholeFile::takeBack()
{
    if (m_hasTemporaryPath)
        ::unlink(m_path.constData());
    else
        m_hasTemporaryPath = ::rename(m_path.constData(), m_temporaryPath.constData()) == 0;
}

// Both of these return true, or false with errno set.
bool WholeFile::rename()
{
    if (::rename(m_temporaryPath.constData(), m_path.constData()) != 0) return false;
    m_hasTemporaryPath = false;
    return true;
}

/// A link is refused where a name is taken, in one step; file systems without links give two steps.
bool WholeFile::link()
{
    if (::link(m_temporaryPath.constData(), m_path.constData()) == 0) return true;
    if (errno != EPERM && errno != EOPNOTSUPP && errno != ENOSYS) return false;
    if (::access(m_path.constData(), F_OK) != 0) return rename();
    errno = EEXIST;
    return false;
}

void sweepTemporaryFiles(const QString& folder)
{
    const QDir dir(folder);
    for (const QString& name : dir.entryList({kPrefix + u'*' + kEnding}, QDir::Files | QDir::Hidden))
        QFile::remove(dir.filePath(name));
}

} // namespace vistrel
