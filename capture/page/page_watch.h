#pragma once

#include "capture/protocol/session.h"

#include <QHash>
#include <QUrl>

namespace vistrel
{

/// Follows one page through its events: which document it shows, how far that is loaded, what it fetched. It
/// answers what would stall the page (dialogs) and ends the session when the page passes a cap.
class PageWatch : public QObject
{
    Q_OBJECT
public:
    static constexpr int kMostDialogs = 10;
    static constexpr int kMostNavigations = 20;
    /// Decoded bytes of all that the page fetched: a bomb, not a page.
    static constexpr qint64 kMostBytes = 512LL * 1024 * 1024;

    /// Listens from now on; session must outlive this object.
    explicit PageWatch(Session& session);

    /// The document that navigate() was answered with; what is asked below is about it or its successors, not
    /// about what the page showed before.
    void expectDocument(const QString& frameId, const QString& loaderId);

    [[nodiscard]] const QString& mainFrame() const { return m_mainFrame; }
    /// Names the document in the main frame; changes with each navigation.
    [[nodiscard]] const QString& loaderId() const { return m_loaderId; }
    /// The document has taken the place of what was there before it.
    [[nodiscard]] bool isThere() const { return m_documents.contains(m_loaderId); }
    /// The document's markup is parsed (DOMContentLoaded).
    [[nodiscard]] bool isParsed() const { return m_parsed; }
    /// The document and all that it asked for at first is there (load).
    [[nodiscard]] bool isLoaded() const { return m_loaded; }
    /// The page has asked to go elsewhere and is not there yet.
    [[nodiscard]] bool isLeaving() const { return m_leaving; }
    /// No request of the page is under way.
    [[nodiscard]] bool isQuiet() const { return m_requests.isEmpty(); }
    /// The scripts and style sheets under way that the markup may wait for; none while the document itself
    /// is under way.
    [[nodiscard]] QList<QUrl> awaitedParts() const;
    /// How many requests it has sent so far.
    [[nodiscard]] int requestCount() const { return m_requestCount; }
    [[nodiscard]] const QUrl& address() const { return m_address; }
    /// The page is at rest, went nowhere by itself, spoke to nobody and had nothing from a network.
    [[nodiscard]] bool keptToItself() const;
    /// Of the document; 0 while unknown or not from a server.
    [[nodiscard]] int httpStatus() const { return m_statuses.value(m_loaderId); }
    /// Why there is no document to take a picture of: the page was given up, as the session will soon end
    /// with, or the browser shows an error page of its own, or the proxy asks for a password.
    [[nodiscard]] Result<void> checkDocument() const;

Q_SIGNALS:
    /// One of the states above may have changed.
    void changed();

private:
    void take(const QString& method, const QJsonObject& params);
    void answerDialog(const QJsonObject& params);
    void countRequest(const QJsonObject& params);
    void followNavigation(const QJsonObject& frame);
    void followLifecycle(const QJsonObject& params);
    void followStop(const QString& frameId);
    void followFailure(const QJsonObject& params);
    void followResponse(const QJsonObject& params);
    void countBytes(const QJsonObject& params);
    void giveUp(Error::Kind kind, const QString& why);

    Session& m_session;
    QString m_mainFrame;
    QString m_loaderId;
    QStringList m_documents; // Loader ids of those that the main frame has come to.
    QUrl m_address;
    struct Request {
        QString frameId;
        QUrl part; // Of a script or a style sheet from a server; else empty.
    };
    // By id: added when sent, removed when finished or failed, or when the frame goes, is given to another
    // renderer, whose events are not ours, or shows another document.
    QHash<QString, Request> m_requests;
    int m_requestCount = 0;
    QHash<QString, int> m_statuses; // By loader id, of all that was answered in the main frame.
    qint64 m_bytes = 0;
    std::optional<Error> m_failure;
    int m_dialogs = 0;
    bool m_isOnline = false; // Something came from a network.
    bool m_parsed = false;
    bool m_loaded = false;
    bool m_leaving = false;
    bool m_errorPage = false;
};

} // namespace vistrel
