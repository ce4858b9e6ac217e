#pragma once

#include "capture/browser/page_target.h"
#include "capture/page/page_request.h"
#include "capture/page/page_watch.h"

#include <QDeadlineTimer>

#include <memory>

namespace vistrel
{

class LocalFiles;
class RequestHeaders;

/// Captures one page: opens it in a context of its own, loads, waits, settles, measures, takes the picture,
/// closes. Whatever goes wrong, it ends within its request's timeout plus the closing, and leaves the browser
/// usable or declared faulty.
///
/// Local pages that had nothing from a network and kept to themselves share a context, one after the other,
/// and are kept from what the one before left. When a page fails there, it is tried again in a fresh context.
class PageRun : public QObject, public std::enable_shared_from_this<PageRun>
{
    Q_OBJECT
public:
    /// What progress() tells once the page is loaded, and once it stands ready for its picture.
    static constexpr int kLoaded = 60;
    static constexpr int kReady = 85;

    static std::shared_ptr<PageRun> create(std::shared_ptr<Browser> browser, PageRequest request);

    /// Runs it, once, to its request's timeout or end, whichever comes first. Errors: Page (cannot be loaded,
    /// crashed, gave no document), Usage (the browser takes an address for none), Timeout, TooLarge,
    /// Cancelled, Closed (the browser went away), Protocol and Format (the browser misbehaves).
    Task<Result<PageShot>> run(QDeadlineTimer end = QDeadlineTimer::Forever);

    /// Ends the run soon with Error::Kind::Cancelled; after its end it does nothing.
    void cancel();

    /// Of the document that the run ended with, whether or not a picture came of it; 0 when no server
    /// answered.
    [[nodiscard]] int httpStatus() const { return m_httpStatus; }

    /// The time that request allows, its default when it names none.
    static std::chrono::milliseconds timeoutOf(const PageRequest& request);

Q_SIGNALS:
    /// 0 to 100, rising.
    void progress(int percent);
    /// The page is about to be asked for; once for each address that is tried.
    void visiting();

private:
    PageRun(std::shared_ptr<Browser> browser, PageRequest request);
    Task<Result<PageShot>> runInTarget();
    Task<Result<PageShot>> runOpened();
    std::shared_ptr<PageTarget> reusedTarget();
    Task<Result<void>> open();
    Error withoutPage(const Error& error);
    Task<Result<void>> prepare();
    [[nodiscard]] bool mayBeReused() const;
    void guardLocalFiles();
    void addHeaders();
    Task<Result<void>> load();
    Task<Result<void>> navigateToFirstReachable();
    Task<Result<void>> navigate(QUrl address);
    Task<Result<void>> replaceDocument();
    Task<Result<void>> waitForDocument();
    Task<Result<void>> becomeReady();
    Task<Result<void>> settle();
    Task<Result<void>> waitOutDelay();
    /// Makes the window taller than asked for by rows, CSS px: for a page that scrolls inside a container.
    Task<Result<void>> growWindow(int rows);
    Task<Result<void>> adapt();
    Task<Result<PagePicture>> shoot();
    Task<Result<PagePicture>> shootOnce();
    [[nodiscard]] Error outOfTime() const;
    void report(int percent);
    void warn(const QString& words);
    [[nodiscard]] std::chrono::milliseconds loadLimit() const;

    std::shared_ptr<Browser> m_browser;
    PageRequest m_request;
    std::shared_ptr<PageTarget> m_target;
    std::shared_ptr<Session> m_session;
    std::unique_ptr<PageWatch> m_watch;
    std::unique_ptr<LocalFiles> m_files;
    std::unique_ptr<RequestHeaders> m_headers;
    QDeadlineTimer m_deadline{QDeadlineTimer::Forever};
    QString m_emptyingScript; // Its identifier; see forgetDocument().
    struct {
        QStringList warnings;
        int growth = 0;         // Of the window, CSS px.
        bool scriptRan = false; // The request's; it runs once, whatever documents follow.
    } m_attempt;
    int m_httpStatus = 0;
    int m_percent = -1;
    bool m_cancelled = false;
};

} // namespace vistrel
