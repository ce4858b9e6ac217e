#pragma once

#include <QString>

namespace vistrel
{

/// The folder of the running executable, links resolved. An application object must exist.
[[nodiscard]] QString programFolder();

/// Where this user's copies of the program's files lie ($XDG_CONFIG_HOME/vistrel). It need not exist.
[[nodiscard]] QString userConfigFolder();

/// The folder behind a special-folder number, without a trailing separator. Known is 5, the user's documents
/// folder, which is created when it is missing. Empty for other numbers and when there is no such folder.
[[nodiscard]] QString specialFolder(qint32 number);

/// True when the process, with its effective rights, may write to the file or create files in the folder at
/// path. False when nothing is there.
[[nodiscard]] bool isWritable(const QString& path);

} // namespace vistrel
