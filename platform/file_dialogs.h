#pragma once

#include "platform/window_handle.h"

#include <QString>

namespace vistrel
{

/// What the open-file dialog is asked for.
struct OpenFileRequest {
    static constexpr quint32 AllowMultiSelect = 0x200; ///< Several files may be chosen.
    static constexpr quint32 FileMustExist = 0x1000;   ///< Else any name may be typed.
    static constexpr quint32 Explorer = 0x80000;       ///< The newer look, and its way of returning files.
    static constexpr quint32 NoDereferenceLinks = 0x100000; ///< Links are returned themselves.

    WindowHandle owner = nullptr;
    /// Pairs of description and patterns ("*.htm;*.html"), a NUL after each and more at the end.
    QString filter;
    /// The name that the dialog starts with, then NULs. The reply must fit into the same length.
    QString buffer;
    QString initialFolder;    ///< Empty: the dialog's own choice.
    QString title;            ///< Empty: the system's title.
    quint32 flags = 0;        ///< The flags above, or-ed.
    QString defaultExtension; ///< With its dot; added to a typed name that has no extension.
};

/// What came of it.
struct OpenFileReply {
    bool confirmed = false; ///< False: cancelled, not shown, or the choice did not fit into the buffer.
    /// As long as the request's. Confirmed: the full path of the one file, or for several files their folder
    /// and their names separated by NULs; then NULs to the end, two at least after several names.
    /// Else the request's buffer.
    QString buffer;
};

/// The system's dialogs for files and folders. Each call returns when the user has closed the dialog;
/// meanwhile the event loop runs and the owner takes no input. No question is asked about a name that
/// exists: callers ask. Tests put a fake here.
class FileDialogs
{
public:
    virtual ~FileDialogs() = default;

    [[nodiscard]] virtual OpenFileReply openFile(const OpenFileRequest& request) = 0;

    /// Lets the user choose a folder of the file system, with nothing preselected and prompt shown.
    /// The folder's path, or empty when the user cancelled.
    [[nodiscard]] virtual QString browseForFolder(WindowHandle owner, const QString& prompt) = 0;
};

} // namespace vistrel
