#pragma once

#include "platform/profile_files.h"

namespace vistrel
{

/// The address that an Internet shortcut (.url) file holds, at most 259 characters: key "URL" of section
/// "InternetShortcut". FileName counts up to its first NUL. Empty when there is no such file or value.
[[nodiscard]] QString ReadShortcutUrl(const QString& FileName,
                                      const ProfileFiles& files = ProfileFiles::host());

} // namespace vistrel
