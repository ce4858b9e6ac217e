#pragma once

#include "platform/file_dialogs.h"
#include "platform/path_style.h"

namespace vistrel
{

/// Shows the system's open-file dialog; true when the user confirmed a choice.
///
/// FileName: in, the name that the dialog starts with, at most 260 characters, 4096 with MultiSelect; a
/// longer one throws RuntimeError (BadFileName) and shows nothing. Out, whatever the outcome: the full path
/// of the chosen file; with MultiSelect the dialog's whole buffer of 4096 characters without blanks at its
/// ends, that is the folder and the names of the files, or one full path, separated by and padded with NULs.
/// Filter: pairs of description and patterns, all separated by "|". InitDir and Title: empty for the
/// system's choice. DefExt: the extension, dot included, that a typed name without one is given.
[[nodiscard]] bool ShowOpenDialog(FileDialogs& dialogs, QString& FileName, bool FileMustExist,
                                  bool MultiSelect, const QString& Filter, const QString& InitDir,
                                  const QString& Title, const QString& DefExt, WindowHandle hWndOwner);

/// The folder of the program with one trailing separator.
[[nodiscard]] QString GetAppPath(PathStyle style = PathStyle::host());

} // namespace vistrel
