#include "platform/desktop/desktop_file_dialogs.h"

#include "platform/desktop/open_file_text.h"
#include "platform/desktop/owner_widget.h"
#include "platform/text.h"

#include <QFileDialog>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

/// Which files may be chosen, and how. A name that need not exist can be typed only into a dialog for saving.
void applyFlags(QFileDialog& dialog, quint32 flags)
{
    dialog.setOption(QFileDialog::DontResolveSymlinks, (flags & OpenFileRequest::NoDereferenceLinks) != 0);
    if ((flags & OpenFileRequest::AllowMultiSelect) != 0) {
        dialog.setFileMode(QFileDialog::ExistingFiles);
    } else if ((flags & OpenFileRequest::FileMustExist) != 0) {
        dialog.setFileMode(QFileDialog::ExistingFile);
    } else {
        dialog.setFileMode(QFileDialog::AnyFile);
        dialog.setAcceptMode(QFileDialog::AcceptSave);
        dialog.setOption(QFileDialog::DontConfirmOverwrite);
    }
}

void apply(QFileDialog& dialog, const OpenFileRequest& request)
{
    applyFlags(dialog, request.flags);
    dialog.setNameFilters(nameFilters(request.filter));
    dialog.setDefaultSuffix(request.defaultExtension);
    if (!request.title.isEmpty()) dialog.setWindowTitle(request.title);
    if (!request.initialFolder.isEmpty()) dialog.setDirectory(request.initialFolder);
    if (const QString name = StripNull(request.buffer); !name.isEmpty()) dialog.selectFile(name);
}

/// Shows the dialog; the chosen local files or folders, none when the user cancelled.
QStringList run(QFileDialog& dialog, QString& lastFolder)
{
    dialog.setSupportedSchemes({u"file"_s});
    if (dialog.exec() != QFileDialog::Accepted) return {};
    lastFolder = dialog.directory().absolutePath();
    return dialog.selectedFiles();
}

} // namespace

OpenFileReply DesktopFileDialogs::openFile(const OpenFileRequest& request)
{
    QFileDialog dialog(ownerWidget(request.owner), QString(), m_folder);
    apply(dialog, request);
    const QStringList paths = run(dialog, m_folder);
    const auto buffer = paths.isEmpty() ? std::nullopt : selectionBuffer(paths, request.buffer.size());
    return {buffer.has_value(), buffer.value_or(request.buffer)};
}

QString DesktopFileDialogs::browseForFolder(WindowHandle owner, const QString& prompt)
{
    QFileDialog dialog(ownerWidget(owner), prompt, m_folder);
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    const QStringList paths = run(dialog, m_folder);
    return paths.isEmpty() ? QString() : paths.first();
}

} // namespace vistrel
