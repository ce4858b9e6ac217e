#pragma once

#include "capture/browser/browser_options.h"
#include "capture/protocol/connection.h"
#include "capture/protocol/shared_work.h"
#include "capture/protocol/task.h"
#include "platform/process/piped_process.h"
#include "platform/process/scratch_folder.h"

#include <QDeadlineTimer>

#include <memory>

namespace vistrel
{

class PageTarget;

/// A page that stands open, with what it showed last, for the next one of its kind.
struct IdlePage {
    QString contextId;
    QString sessionId;
    QString setup; ///< Names all that was set for it.
    int uses = 0;
    QDeadlineTimer end; ///< When it is closed.
};

/// One running browser: its process, its private profile and its connection. A browser that crashed, closed
/// its pipe or would not let go of a page is faulty; its owner drops it and launches another.
///
/// Always on with its sandbox, listening on no port; under an unprivileged account when we are the superuser.
class Browser : public QObject, public std::enable_shared_from_this<Browser>
{
    Q_OBJECT
public:
    static std::shared_ptr<Browser> create();

    /// Starts the process and waits for its first answer; called once. Errors: Io when there is no browser,
    /// when it ends at once (its own words are quoted, with the remedy where one is known), or when it does
    /// not answer.
    Task<Result<void>> start(BrowserOptions options);

    /// Ends the browser's processes at once; whatever waits for an answer of theirs ends with reason. Its
    /// profile is thrown away anyway, so there is nothing to save by asking.
    void kill(const Error& reason);

    /// Kills the browser's processes if they still run and deletes its folder.
    ~Browser() override;

    /// Opens an empty page in a browser context of its own: no cookie, no storage and no cache of another
    /// page. Each of the few steps may take limit.
    Task<Result<std::shared_ptr<PageTarget>>> openPage(Session::Limit limit);

    /// Keeps page open for a moment, in which reusePage() may find it.
    void keepPage(IdlePage page);
    /// The page that was kept last under setup; null when there is none.
    [[nodiscard]] std::shared_ptr<PageTarget> reusePage(const QString& setup);

    [[nodiscard]] bool isUsable() const;
    /// Declares the browser unfit for further pages.
    void setFaulty() { m_faulty = true; }

    /// "HeadlessChrome/156.0.8078.79".
    [[nodiscard]] const QString& product() const { return m_product; }
    /// Pixels of a side that this browser draws right in one piece; none while drawingCheck() has not been
    /// done.
    [[nodiscard]] std::optional<int> longestSide() const { return m_longestSide; }
    void setLongestSide(int px) { m_longestSide = px; }
    [[nodiscard]] SharedWork<int>& drawingCheck() { return m_drawingCheck; }
    [[nodiscard]] qint64 processId() const { return m_process->processId(); }
    [[nodiscard]] Connection& connection() { return *m_connection; }
    [[nodiscard]] ScratchFolder& folder() { return *m_folder; }
    /// The account it runs under; none when it is ours.
    [[nodiscard]] const std::optional<Account>& account() const { return m_account; }

private:
    Browser() = default;
    Result<void> launch(const BrowserOptions& options);
    Result<void> launchProcess(const BrowserOptions& options, const QString& program);
    Error startFailure(const Error& cause) const;
    void closeIdlePages();

    std::optional<Account> m_account;
    // Ended last to first: the connection, then the process, then its folder.
    std::unique_ptr<ScratchFolder> m_folder;
    std::unique_ptr<PipedProcess> m_process;
    std::unique_ptr<Connection> m_connection;
    QList<IdlePage> m_idlePages; // Added by keepPage(); removed by reusePage(), or when their time is over.
    QString m_product;
    std::optional<int> m_longestSide;
    SharedWork<int> m_drawingCheck;
    bool m_faulty = false;
};

} // namespace vistrel
