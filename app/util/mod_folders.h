#pragma once

#include "platform/file_dialogs.h"
#include "platform/path_style.h"

namespace vistrel
{

/// Lets the user choose a folder. Title is the dialog's prompt; empty: "Choose an output folder: ".
/// The folder with a trailing separator, or empty when the user cancelled.
[[nodiscard]] QString BrowseForFolder(FileDialogs& dialogs, WindowHandle hWndOwner, const QString& Title,
                                      PathStyle style = PathStyle::host());

/// The folder behind a special-folder number (5: the user's documents) with a trailing separator, or empty.
[[nodiscard]] QString GetSpecialFolder(qint32 CSIDL);

} // namespace vistrel
