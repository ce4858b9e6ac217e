#pragma once

#include "platform/shell.h"

namespace vistrel
{

/// What the desktop's default applications and its settings programs do.
class DesktopShell final : public Shell
{
public:
    void open(WindowHandle owner, const QString& target) override;

    /// Starts the first settings program found on PATH, of those of the well-known desktops.
    void internetOptions(WindowHandle owner) override;
};

} // namespace vistrel
