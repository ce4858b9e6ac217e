#pragma once

#include "app/config/cls_config.h"
#include "convert/page_capture.h"
#include "platform/code_page.h"
#include "platform/file_dialogs.h"
#include "platform/host_files.h"
#include "platform/message_boxes.h"
#include "platform/shell.h"

#include <memory>

namespace vistrel
{

/// What the parts of the program share while it runs: the state of the start-up module, and the host's
/// services. The services are borrowed and outlive it.
struct Program {
    FileDialogs& fileDialogs;
    MessageBoxes& messageBoxes;
    HostFiles& files;
    PageCaptureFactory newOrdane2;
    /// Set from the start of the program until the main window unloads; empty where the desktop has none.
    std::unique_ptr<Shell> hShell32 = nullptr;
    QString configFile = configPath();
    CodePage codePage = CodePage::host();
    /// The one configuration, from InitControls until the main window unloads; then written to configFile.
    std::unique_ptr<clsConfig> Config = nullptr;

    /// Opens a file, folder or address with the desktop's default action, whether that works or not.
    void open(WindowHandle owner, const QString& target) const;
};

} // namespace vistrel
