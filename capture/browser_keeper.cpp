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
    if (m_browser) m_browser->kill({Error::Kind::Cancelled, u"the browser was stopped"_s, {}});
    m_browser.reset();
}

} // namespace vistrel
