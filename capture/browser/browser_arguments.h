#pragma once

#include "capture/browser/browser_options.h"

#include <QStringList>

namespace vistrel
{

/// The command line of a browser that talks over its DevTools pipe and keeps its profile in profileFolder.
QStringList browserArguments(const BrowserOptions& options, const QString& profileFolder);

} // namespace vistrel
