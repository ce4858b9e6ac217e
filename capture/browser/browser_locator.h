#pragma once

#include "platform/result.h"

namespace vistrel
{

/// The browser program to use: named when it is not empty, else the first Chromium-family browser of this
/// machine, the headless shell before the full ones. Error::Kind::Io when there is none, with the remedy.
Result<QString> locateBrowser(const QString& named = {});

} // namespace vistrel
