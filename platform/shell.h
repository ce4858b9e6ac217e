#pragma once

#include "platform/window_handle.h"

#include <QString>

namespace vistrel
{

/// What the desktop opens on the program's behalf. Nothing is reported back: where the desktop cannot,
/// nothing happens. The calls do not wait for what they started. Tests put a fake here.
class Shell
{
public:
    virtual ~Shell() = default;

    /// The default action of a file, a folder or a web address. For a help book (.chm) that is missing, or
    /// that no program is registered for, the page index.html in the folder of the same name beside it is
    /// opened instead, when it exists (help.chm: help/index.html).
    virtual void open(WindowHandle owner, const QString& target) = 0;

    /// The desktop's network and proxy settings.
    virtual void internetOptions(WindowHandle owner) = 0;
};

} // namespace vistrel
