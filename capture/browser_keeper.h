#pragma once

#include "capture/browser/browser.h"

namespace vistrel
{

/// Keeps a browser at hand: the one that runs while it is usable, else a new one.
class BrowserKeeper
{
public:
    explicit BrowserKeeper(BrowserOptions options) : m_options(std::move(options)) {}
    BrowserKeeper(const BrowserKeeper&) = delete;
    BrowserKeeper& operator=(const BrowserKeeper&) = delete;

    /// Kills the browser, one that is just starting included.
    ~BrowserKeeper() { stop(); }

    /// The browser to open the next page in. Fails as Browser::start does.
    Task<Result<std::shared_ptr<Browser>>> browser(std::chrono::milliseconds startLimit);

    /// Kills the browser; whatever waits for it ends with Error::Kind::Cancelled.
    void stop();

private:
    BrowserOptions m_options;
    std::shared_ptr<Browser> m_browser;
};

} // namespace vistrel
