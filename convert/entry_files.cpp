#include "convert/entry_files.h"

#include "platform/runtime_error.h"

namespace vistrel
{

namespace
{

constexpr qsizetype longestShortPath = 259;

} // namespace

bool SaveBytes(HostFiles& files, const QString& path, QByteArrayView data)
{
    return files.writeFromStart(path, data).ok();
}

QString GetShortPath(const HostFiles& files, const QString& path)
{
    QString shortPath = files.shortPath(path);
    return shortPath.size() <= longestShortPath ? shortPath : QString();
}

void deleteIfExists(HostFiles& files, const QString& path)
{
    if (files.exists(path) && !files.remove(path)) throw RuntimeError(RuntimeError::Number::PermissionDenied);
}

} // namespace vistrel
