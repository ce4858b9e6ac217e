#include "batch/browser_pool.h"

#include "platform/log.h"

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
    const bool usable =
        !m_start.isUnderWay() && m_browser && m_browser->isUsable() && m_pages < kPagesPerBrowser;
    if (usable) {
        ++m_pages;
        co_return Result(m_browser); // A copy: the task would move the member out.
    }
    const auto started = co_await m_start.join([this] { return startBrowser(); });
    // Others that waited for the same start went first: they may have ended the run, or replaced the browser.
    if (m_stopped) co_return stopped();
    ++m_pages;
    co_return started;
}

Task<Result<std::shared_ptr<Browser>>> BrowserPool::startBrowser()
{
    Result<void> started = co_await startOnce();
    for (int failures = 1; !started && m_hasStarted && failures <= kMostRestarts && !m_stopped; ++failures) {
        qCWarning(logBrowser).noquote() << "the browser did not start again:" << started.error().text();
        const auto waited = co_await pause(failures);
        if (waited) started = co_await startOnce();
    }
    if (!started) co_return started.error();
    m_hasStarted = true;
    co_return Result(m_browser);
}

Task<Result<void>> BrowserPool::startOnce()
{
    retire();
    const auto browser = m_browser = Browser::create();
    m_pages = 0;
    co_return co_await browser->start(m_options);
}

Completion<void> BrowserPool::pause(int failures)
{
    m_pause = Completion<void>();
    QTimer::singleShot(std::chrono::seconds(1 << (failures - 1)), this,
                       [pause = m_pause] { pause.settle({}); });
    return m_pause;
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

void BrowserPool::stop()
{
    m_stopped = true;
    m_pause.settle(stopped());
    retire();
    const auto browsers = m_retired;
    for (const auto& browser : browsers)
        browser->kill(stopped());
}

} // namespace vistrel
