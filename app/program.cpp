#include "app/program.h"

namespace vistrel
{

void Program::open(WindowHandle owner, const QString& target) const
{
    if (hShell32) hShell32->open(owner, target);
}

} // namespace vistrel
