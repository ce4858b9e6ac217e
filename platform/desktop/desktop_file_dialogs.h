#pragma once

#include "platform/file_dialogs.h"

#include <QDir>

namespace vistrel
{

/// The file dialogs of the desktop, or the toolkit's where the desktop has none. Owners are widgets. Where
/// the caller names no folder, a dialog opens where the last one was confirmed, the first in the user's home.
class DesktopFileDialogs final : public FileDialogs
{
public:
    [[nodiscard]] OpenFileReply openFile(const OpenFileRequest& request) override;
    [[nodiscard]] QString browseForFolder(WindowHandle owner, const QString& prompt) override;

private:
    QString m_folder = QDir::homePath(); // Where the next dialog opens.
};

} // namespace vistrel
