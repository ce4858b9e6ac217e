// The wizard's entry point: an application, the host's real services, and Main.
#include "app/mod_main.h"
#include "capture/ordane2.h"
#include "platform/desktop/desktop_file_dialogs.h"
#include "platform/desktop/desktop_message_boxes.h"
#include "platform/desktop/desktop_shell.h"

#include <QApplication>

using namespace vistrel;

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("vistrel"));
    QGuiApplication::setDesktopFileName(QStringLiteral("vistrel"));
    DesktopFileDialogs fileDialogs;
    DesktopMessageBoxes messageBoxes;
    const PageCaptureFactory newOrdane2 = [](const QString& extension) {
        return std::make_shared<Ordane2>(BrowserOptions{}, imageFormatOf(extension.mid(1)));
    };
    modMain start({fileDialogs, messageBoxes, hostFiles(), newOrdane2});
    start.Main(std::make_unique<DesktopShell>());
    return QApplication::exec();
}
