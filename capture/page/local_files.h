#pragma once

#include "capture/browser/browser.h"

#include <QUrl>

namespace vistrel
{

/// Stands between a local page and the local files that it asks for. It hands over those that the browser's
/// account cannot read itself, and refuses those outside a confinement. Needed only where there is one of the
/// two, and only for pages that are local themselves: the browser lets no other page ask for local files.
class LocalFiles : public QObject
{
    Q_OBJECT
public:
    /// The largest file handed over: the browser drops its connection on a message of over 100 MiB.
    static constexpr qint64 kLargestBytes = 70LL * 1024 * 1024;

    /// What browser should load for the local page at address: address itself, or, for an archive, which a
    /// browser opens from disk alone, a copy that its account can read and that has the right line ends.
    static Result<QUrl> reachable(Browser& browser, const QUrl& address);

    /// Serves session's page from now on; session must outlive this object. account: the browser's, none when
    /// it is ours. confinement: the only folder whose files the page may see; empty for no such limit.
    LocalFiles(Session& session, std::optional<Account> account, const QString& confinement);

    /// The page itself, which a confinement does not keep out.
    void expectPage(const QUrl& address) { m_page = address.toLocalFile(); }

private:
    void answer(const QJsonObject& params);
    [[nodiscard]] bool isConfined(const QString& path) const;
    void fulfil(const QString& requestId, const QString& path);
    void refuse(const QString& requestId, const QString& path);

    Session& m_session;
    std::optional<Account> m_account;
    QString m_page;
    QString m_confinement; // Canonical, with a final separator; empty when there is none.
};

} // namespace vistrel
