#pragma once

#include <QString>

#include <chrono>

namespace vistrel
{

/// How a browser is started. The defaults suit every normal caller.
struct BrowserOptions {
    QString program;     ///< Path or name of a Chromium-family browser; empty: the best one of this machine.
    bool sandbox = true; ///< False only by the user's explicit choice; it is logged.
    std::chrono::milliseconds startLimit = std::chrono::seconds(30); ///< Until its first answer.
};

} // namespace vistrel
