#pragma once

#include "platform/host_files.h"
#include "platform/path_style.h"

#include <QMap>
#include <QSet>

namespace vistrel::test
{

/// Files in memory, with the failures that tests ask for. A file can be written only into a known folder.
class MemoryFiles : public HostFiles
{
public:
    explicit MemoryFiles(PathStyle style = PathStyle::slash()) : m_style(style) {}

    QMap<QString, QByteArray> contents; ///< By path.
    QSet<QString> folders;              ///< With their trailing separator.
    QSet<QString> undeletable;          ///< Paths that remove() refuses.
    QMap<QString, QString> shortPaths;  ///< Where a short path differs from the long one.

    bool exists(const QString& path) const override { return contents.contains(path); }

    Result<qint64> length(const QString& path) const override
    {
        if (!exists(path)) return failure(path);
        return contents.value(path).size();
    }

    Result<QByteArray> read(const QString& path) const override
    {
        if (!exists(path)) return failure(path);
        return contents.value(path);
    }

    Result<void> writeFromStart(const QString& path, QByteArrayView bytes) override
    {
        if (!folders.contains(path.left(path.lastIndexOf(m_style.separator) + 1))) return failure(path);
        contents[path].replace(0, bytes.size(), bytes.toByteArray());
        return {};
    }

    Result<void> remove(const QString& path) override
    {
        if (undeletable.contains(path) || contents.remove(path) == 0) return failure(path);
        return {};
    }

    QString shortPath(const QString& path) const override
    {
        return exists(path) ? shortPaths.value(path, path) : QString();
    }

private:
    static Error failure(const QString& path) { return {Error::Kind::Io, path, {}}; }

    PathStyle m_style;
};

} // namespace vistrel::test
