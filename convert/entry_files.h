#pragma once

#include "platform/host_files.h"

#include <QByteArrayView>
#include <QString>

namespace vistrel
{

/// Writes data over the file at path from its start, creating it when it is missing; a longer file keeps its
/// tail. False when that fails; nobody is told otherwise.
bool SaveBytes(HostFiles& files, const QString& path, QByteArrayView data);

/// The short form of path; empty when the host gives none, or one of more than 259 characters.
[[nodiscard]] QString GetShortPath(const HostFiles& files, const QString& path);

/// Clears the way for a new file at path. RuntimeError PermissionDenied when a file is there and stays.
void deleteIfExists(HostFiles& files, const QString& path);

} // namespace vistrel
