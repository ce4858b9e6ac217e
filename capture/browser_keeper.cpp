#include "capture/browser_keeper.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace vistrel
{

Task<Result<std::shared_ptr<Browser>>> BrowserKeeper::browser(std::chrono::milliseconds startLimit)
{
    if (m_browser && m_browser->isUsable()) co_return std::shared_ptr(m_browser);
    const auto browser = m_browser = Browser::create();
    BrowserOptions options = m_options;
    options.startLimit = std::min(options.startLimit, startLimit);
    const auto started = co_await browser->start(options);
    if (!started) co_return started.error();
    co_return browser;
}

void BrowserKeeper::stop()
{
    const auto browser = std::exchange(m_browser, nullptr); // What is ended here may call stop() again.
    if (browser) browser->kill({Error::Kind::Cancelled, u"the browser was stopped"_s, {}});
}

} // namespace vistrel
