#include "platform/host_files.h"

#include "platform/folders.h"

#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

Error ioError(const QString& path, const QString& reason)
{
    return {Error::Kind::Io, path + u": "_s + reason, {}};
}

/// path as the name of a real file: a leading colon would mean the program's resources, and a NUL would cut
/// the name short, so that another file were meant; the empty path names none.
QString realPath(const QString& path)
{
    if (path.contains(QChar::Null)) return {};
    return path.startsWith(u':') ? u"./"_s + path : path;
}

/// Pipes, devices and folders are no files here: opening some of them would wait for ever.
bool isSomethingElse(const QString& realPath)
{
    const QFileInfo info(realPath);
    return info.exists() && !info.isFile();
}

/// Why file, whose name is a realPath(), could not be opened; empty when it was.
QString reasonAgainstOpening(QFile& file, QFile::OpenMode mode)
{
    if (file.fileName().isEmpty()) return u"Not a file name"_s;
    if (isSomethingElse(file.fileName())) return u"Not a regular file"_s;
    return file.open(mode | QFile::Unbuffered) ? QString() : file.errorString();
}

class RealFiles final : public HostFiles
{
public:
    [[nodiscard]] bool exists(const QString& path) const override
    {
        return QFileInfo(realPath(path)).isFile();
    }

    [[nodiscard]] Result<qint64> length(const QString& path) const override
    {
        if (!exists(path)) return ioError(path, u"No such file"_s);
        return QFileInfo(realPath(path)).size();
    }

    [[nodiscard]] Result<QByteArray> read(const QString& path) const override
    {
        QFile file(realPath(path));
        const QString reason = reasonAgainstOpening(file, QFile::ReadOnly);
        if (!reason.isEmpty()) return ioError(path, reason);
        QByteArray bytes = file.readAll();
        if (file.error() != QFile::NoError) return ioError(path, file.errorString());
        return bytes;
    }

    Result<void> writeFromStart(const QString& path, QByteArrayView bytes) override
    {
        QFile file(realPath(path));
        const bool isNew = !file.exists();
        const QString reason = reasonAgainstOpening(file, QFile::ReadWrite);
        if (!reason.isEmpty()) return ioError(path, reason);
        if (file.write(bytes.data(), bytes.size()) == bytes.size()) return {};
        const QString failure = file.errorString();
        if (isNew) file.remove();
        return ioError(path, failure);
    }

    Result<void> remove(const QString& path) override
    {
        if (!exists(path)) return ioError(path, u"No such file"_s);
        QFile file(realPath(path));
        if (!isWritable(file.fileName())) return ioError(path, u"The file is write-protected"_s);
        if (!file.remove()) return ioError(path, file.errorString());
        return {};
    }

    [[nodiscard]] QString shortPath(const QString& path) const override
    {
        return QFileInfo::exists(realPath(path)) ? path : QString();
    }
};

} // namespace

HostFiles& hostFiles()
{
    static RealFiles files;
    return files;
}

} // namespace vistrel
