#pragma once

#include "capture/browser/browser.h"

#include <QUrl>

namespace vistrel
{

/// Hands a page the local files that the browser's account cannot read itself. Only needed while the browser
/// runs under another account than ours; only for pages that are local themselves, since the browser lets no
/// other page ask for local files.
class LocalFiles : public QObject
{
    Q_OBJECT
public:
    /// The largest file handed over: the browser drops its connection on a message of over 100 MiB.
    static constexpr qint64 kLargestBytes = 70LL * 1024 * 1024;

    /// What browser should load for the local page at address: address itself, or, for an MHT file, which a
    /// browser opens from disk alone, a copy that its account can read.
    static Result<QUrl> reachable(Browser& browser, const QUrl& address);

    /// Serves session's page from now on; session must outlive this object.
    LocalFiles(Session& session, Account account);

private:
    void answer(const QJsonObject& params);
    void fulfil(const QString& requestId, const QString& path);
    void refuse(const QString& requestId);

    Session& m_session;
    Account m_account;
};

} // namespace vistrel
