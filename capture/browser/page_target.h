#pragma once

#include "capture/browser/browser.h"

namespace vistrel
{

/// One page of a browser, alone in its browser context. Closing it is the browser's business and never blocks
/// the caller's flow: a context that will not go makes the browser faulty.
class PageTarget
{
public:
    /// Opens an empty page in a fresh context that allows no downloads; each step may take limit.
    static Task<Result<std::shared_ptr<PageTarget>>> open(std::shared_ptr<Browser> browser,
                                                          Session::Limit limit);

    PageTarget(const PageTarget&) = delete;
    PageTarget& operator=(const PageTarget&) = delete;
    /// Disposes of the context, its page and its renderer, however busy that is.
    ~PageTarget();

    [[nodiscard]] const std::shared_ptr<Session>& session() const { return m_session; }

private:
    PageTarget(std::shared_ptr<Browser> browser, QString contextId);
    // Waits for the answer without keeping the browser alive for it.
    static Task<> dispose(std::weak_ptr<Browser> browser, QString contextId);

    std::shared_ptr<Browser> m_browser;
    QString m_contextId;
    std::shared_ptr<Session> m_session;
};

} // namespace vistrel
