#include "batch/browser_pool.h"

#include "capture/page/checked_browser.h"

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

Error stopped() { return {Error::Kind::Cancelled, u"the run was ended"_s, {}}; }

constexpr auto kSweepInterval = std::chrono::milliseconds(200);

} // namespace

BrowserPool::BrowserPool(BrowserOptions options) : m_options(std::move(options))
{
    m_sweep.setInterval(kSweepInterval);
    connect(&m_sweep, &QTimer::timeout, this, &BrowserPool::dropIdle);
}

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
    co_return Result(m_browser); // A copy: the task would move the member out.
}

Task<> BrowserPool::startBrowser()
{
    retire();
    const auto browser = m_browser = Browser::create();
    m_starting = true;
    m_pages = 0;
    const auto started = co_await startChecked(browser, m_options);
    m_starting = false;
    settleWaiters(started ? Result(browser) : Result<std::shared_ptr<Browser>>(started.error()));
}

void BrowserPool::retire()
{
    if (!m_browser) return;
    m_retired.append(std::exchange(m_browser, nullptr));
    m_sweep.start();
}

/// Ends the retired browsers in which no page is left.
void BrowserPool::dropIdle()
{
    m_retired.removeIf([](const std::shared_ptr<Browser>& browser) { return browser.use_count() == 1; });
    if (m_retired.isEmpty()) m_sweep.stop();
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
    retire();
    const auto browsers = m_retired;
    for (const auto& browser : browsers)
        browser->kill(stopped());
}

} // namespace vistrel
