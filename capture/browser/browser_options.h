#pragma once

#include <QString>

#include <chrono>

namespace vistrel
{

/// How a browser is started. The defaults suit every normal caller.
struct BrowserOptions {
    QString program;     ///< Path or name of a Chromium-family browser; empty: the best one of this machine.
    bool sandbox = true; ///< False only by the user's explicit choice; it is logged.
    QString language;  ///< "de-CH,de,en": what pages are asked for in, best first; empty: the browser's own.
    QString userAgent; ///< What the browser calls itself; empty: its own name.
    QString
        proxy; ///< Address of the proxy that all but this machine is reached through; empty: as the system.
    bool takeBadCertificates = false; ///< Whether https pages are shown whose certificate proves nothing.
    std::chrono::milliseconds startLimit = std::chrono::seconds(30); ///< Until its first answer.
};

} // namespace vistrel
