#pragma once

#include "capture/browser/browser.h"

#include <QList>
#include <QObject>
#include <QTimer>

namespace vistrel
{

/// The browser that a run's pages are opened in. One that became faulty, or had its share of pages, gives way
/// to a fresh one; pages under way stay in the old one.
///
/// The pool's reference to a browser is the last one to go, and it goes from the event loop: pages let go of
/// their browser inside its own signals, where it must not be destroyed.
class BrowserPool : public QObject
{
    Q_OBJECT
public:
    /// A browser's memory grows with the pages that it has shown.
    static constexpr int kPagesPerBrowser = 100;
    static constexpr int kMostRestarts = 5;

    explicit BrowserPool(BrowserOptions options);
    /// Ends the browsers. Not inside a signal of one of them; no task may be waiting any more.
    ~BrowserPool() override { stop(); }

    /// The browser to open the next page in, started when there is none; those who ask meanwhile wait for the
    /// same start. Where one has run before, a start that fails is tried again kMostRestarts times, after 1,
    /// 2, 4, ... s: the machine may be short of something for a while. Fails as Browser::start does, or with
    /// Error::Kind::Cancelled after stop().
    Task<Result<std::shared_ptr<Browser>>> browser();

    /// Kills the browsers' processes; whatever waits for them ends with Error::Kind::Cancelled.
    void stop();

private:
    Task<Result<std::shared_ptr<Browser>>> startBrowser();
    Task<Result<void>> startOnce();
    Completion<void> pause(int failures);
    void retire();
    void dropIdle();

    BrowserOptions m_options;
    std::shared_ptr<Browser> m_browser;        // The one for new pages; may be starting.
    QList<std::shared_ptr<Browser>> m_retired; // Still showing pages, perhaps.
    SharedWork<std::shared_ptr<Browser>> m_start;
    QTimer m_sweep;            // While there is a retired one.
    Completion<void> m_pause;  // Between two starts.
    bool m_hasStarted = false; // One of them, at some time.
    bool m_stopped = false;
    int m_pages = 0; // Opened in m_browser.
};

} // namespace vistrel
