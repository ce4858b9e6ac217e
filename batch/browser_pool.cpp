#include "batch/browser_pool.h"

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

Error stopped() { return {Error::Kind::Cancelled, u"the run was ended"_s, {}}; }

} // namespace

Task<Result<std::shared_ptr<Browser>>> BrowserPool::browser()
{
    if (m_stopped) co_return stopped();
    const bool usable = !m_starting && m_browser && m_browser->isUsable() && m_pages < kPagesPerBrowser;
    if (!usable) {
        const Waiter waiter = m_waiters.emplaceBack();
        if (!m_starting) startBrowser();
        const auto started = co_await waiter;
        if (!started) co_return started.error();
    }
    ++m_pages;
    co_return m_browser;
}

Task<> BrowserPool::startBrowser()
{
    retire();
    const auto browser = m_browser = Browser::create();
    m_starting = true;
    m_pages = 0;
    const auto started = co_await browser->start(m_options);
    m_starting = false;
    settleWaiters(started ? Result(browser) : Result<std::shared_ptr<Browser>>(started.error()));
}

void BrowserPool::retire()
{
    m_retired.removeIf([](const std::weak_ptr<Browser>& browser) { return browser.expired(); });
    if (m_browser) m_retired.append(m_browser);
}

void BrowserPool::settleWaiters(const Result<std::shared_ptr<Browser>>& result)
{
    const auto waiters = std::exchange(m_waiters, {});
    for (const Waiter& waiter : waiters)
        waiter.settle(result);
}

void BrowserPool::stop()
{
    m_stopped = true;
    QList<std::shared_ptr<Browser>> browsers{std::exchange(m_browser, nullptr)};
    for (const auto& retired : std::as_const(m_retired))
        browsers.append(retired.lock());
    for (const auto& browser : browsers) {
        if (browser) browser->kill(stopped());
    }
}

} // namespace vistrel
