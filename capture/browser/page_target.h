#pragma once

#include "capture/browser/browser.h"

namespace vistrel
{

/// One page of a browser, alone in its browser context. Closing it is the browser's business and never blocks
/// the caller's flow: a context that will not go makes the browser faulty.
///
/// A page whose document left nothing behind may be kept for another: a context with its renderer costs as
/// much processor time as a small page.
class PageTarget
{
public:
    /// Opens an empty page in a fresh context that allows no downloads; each step may take limit.
    static Task<Result<std::shared_ptr<PageTarget>>> open(std::shared_ptr<Browser> browser,
                                                          Session::Limit limit);
    /// Takes up a page that was kept; the session is another, the settings are those that were made.
    static std::shared_ptr<PageTarget> reopen(std::shared_ptr<Browser> browser, const IdlePage& page);

    PageTarget(const PageTarget&) = delete;
    PageTarget& operator=(const PageTarget&) = delete;
    /// Disposes of the context, its page and its renderer, however busy that is; unless the page was kept.
    ~PageTarget();

    [[nodiscard]] const std::shared_ptr<Session>& session() const { return m_session; }

    /// Whether it has shown a document before.
    [[nodiscard]] bool isReused() const { return m_uses > 0; }
    /// Leaves the page to the browser for a next one with the same setup; after kMostUses it is closed all
    /// the same, since a renderer's memory grows. The last call.
    void keep(const QString& setup);

private:
    static constexpr int kMostUses = 20;

    PageTarget(std::shared_ptr<Browser> browser, QString contextId);
    // Waits for the answer without keeping the browser alive for it.
    static Task<> dispose(std::weak_ptr<Browser> browser, QString contextId);

    std::shared_ptr<Browser> m_browser;
    QString m_contextId;
    std::shared_ptr<Session> m_session;
    int m_uses = 0;
    bool m_kept = false;
};

} // namespace vistrel
