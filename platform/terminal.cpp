#include "platform/terminal.h"

#include <QByteArray>

#include <sys/ioctl.h>
#include <unistd.h>

namespace vistrel
{

bool errorStreamIsTerminal() { return ::isatty(STDERR_FILENO) == 1 && qgetenv("TERM") != "dumb"; }

bool outputStreamIsTerminal() { return ::isatty(STDOUT_FILENO) == 1; }

int terminalColumns()
{
    winsize size{};
    const bool known = ::ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
    return known ? size.ws_col : 80;
}

} // namespace vistrel
