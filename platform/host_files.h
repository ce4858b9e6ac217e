#pragma once

#include "platform/result.h"

#include <QByteArrayView>
#include <QString>

namespace vistrel
{

/// The host's files, as far as naming, saving and the list files touch them. Tests put a fake here.
class HostFiles
{
public:
    virtual ~HostFiles() = default;

    /// True exactly when the length of a file at path can be read; an empty file exists, a folder does not.
    /// Any failure (no such file, a malformed path, a text that is a web address) is false.
    [[nodiscard]] virtual bool exists(const QString& path) const = 0;

    /// Length of the file in bytes; Error::Kind::Io when it cannot be read.
    [[nodiscard]] virtual Result<qint64> length(const QString& path) const = 0;

    /// Whole content of the file; Error::Kind::Io when it cannot be read.
    [[nodiscard]] virtual Result<QByteArray> read(const QString& path) const = 0;

    /// Writes bytes over the file from its start, creating it when it is missing; a longer file keeps its
    /// tail. Error::Kind::Io when that fails.
    virtual Result<void> writeFromStart(const QString& path, QByteArrayView bytes) = 0;

    /// Deletes the file; Error::Kind::Io when it cannot be deleted.
    virtual Result<void> remove(const QString& path) = 0;

    /// The short (8.3) form of path where the host keeps such names, else path itself; empty when nothing
    /// exists at path.
    [[nodiscard]] virtual QString shortPath(const QString& path) const = 0;
};

/// The real ones.
HostFiles& hostFiles();

} // namespace vistrel
