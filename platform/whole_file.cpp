#include "platform/whole_file.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>

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

WriteProblem problem(const QString& path, int error)
{
    const QString reason = QString::fromStdString(std::generic_category().message(error));
    return {causeOf(error), u"%1 cannot be written: %2"_s.arg(path, reason)};
}

/// A file of ours that nobody else sees yet; deleted unless it was moved to its place.
class TemporaryFile
{
public:
    explicit TemporaryFile(const QString& folder)
        : m_path(QFile::encodeName(folder + u'/' + kPrefix +
                                   QString::number(QRandomGenerator::system()->generate64(), 16) + kEnding)),
          m_descriptor(::open(m_path.constData(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0666))
    {
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile()
    {
        if (m_descriptor < 0) return;
        ::close(m_descriptor);
        if (!m_path.isEmpty()) ::unlink(m_path.constData());
    }

    [[nodiscard]] bool isOpen() const { return m_descriptor >= 0; }

    // Each of these returns true, or false with errno set.
    bool write(QByteArrayView bytes) const
    {
        while (!bytes.isEmpty()) {
            const ssize_t count = ::write(m_descriptor, bytes.data(), size_t(bytes.size()));
            if (count < 0 && errno != EINTR) return false;
            if (count > 0) bytes = bytes.sliced(count);
        }
        return ::fdatasync(m_descriptor) == 0;
    }

    bool moveTo(const QByteArray& path, IfExists ifExists)
    {
        if (ifExists == IfExists::Refuse) return linkTo(path);
        if (::rename(m_path.constData(), path.constData()) != 0) return false;
        m_path.clear();
        return true;
    }

private:
    /// A link is refused where a name is taken, in one step; file systems without links give two steps.
    bool linkTo(const QByteArray& path)
    {
        if (::link(m_path.constData(), path.constData()) == 0) return true;
        if (errno != EPERM && errno != EOPNOTSUPP && errno != ENOSYS) return false;
        if (::access(path.constData(), F_OK) != 0) return moveTo(path, IfExists::Replace);
        errno = EEXIST;
        return false;
    }

    QByteArray m_path; // Empty once the file has its final name alone.
    int m_descriptor;
};

/// Makes a new name in folder survive a power failure; some file systems refuse, and keep it anyway.
void syncFolder(const QString& folder)
{
    const int descriptor = ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0) return;
    ::fsync(descriptor);
    ::close(descriptor);
}

} // namespace

std::optional<WriteProblem> writeWholeFile(const QString& path, QByteArrayView bytes, IfExists ifExists)
{
    const QString folder = QFileInfo(path).absolutePath();
    TemporaryFile file(folder);
    const bool done = file.isOpen() && file.write(bytes) && file.moveTo(QFile::encodeName(path), ifExists);
    if (!done) return problem(path, errno);
    syncFolder(folder);
    return std::nullopt;
}

int sweepTemporaryFiles(const QString& folder)
{
    const QDir dir(folder);
    int deleted = 0;
    for (const QString& name : dir.entryList({kPrefix + u'*' + kEnding}, QDir::Files | QDir::Hidden))
        deleted += QFile::remove(dir.filePath(name)) ? 1 : 0;
    return deleted;
}

} // namespace vistrel
