#pragma once

#include "capture/protocol/session.h"
#include "capture/protocol/transport.h"

#include <QHash>

#include <memory>

namespace vistrel
{

/// Numbers calls, and hands replies and events to the session they belong to. The browser's own channel is
/// the session with the empty id. Messages for sessions that are gone, and late replies, are dropped.
class Connection : public QObject
{
    Q_OBJECT
public:
    explicit Connection(std::unique_ptr<Transport> transport);
    /// Ends every session with Error::Kind::Closed.
    ~Connection() override;

    /// The browser's own channel.
    [[nodiscard]] Session& browser() { return *m_browser; }

    /// A session for the target that was attached under id. It ends with the connection.
    [[nodiscard]] std::shared_ptr<Session> openSession(const QString& id);

    [[nodiscard]] bool isOpen() const { return m_browser->isOpen(); }

    /// Ends every session with reason; no message is taken any more.
    void close(const Error& reason);

private:
    friend class Session;
    /// Sends a call of session; the reply reaches Session::receive under the number returned.
    int send(const Session& session, const QString& method, const QJsonObject& params);

    void dispatch(const QByteArray& bytes);
    void endAll(const Error& reason);

    std::unique_ptr<Transport> m_transport;
    QHash<QString, std::weak_ptr<Session>> m_sessions; // By id; expired ones go when the next one is opened.
    std::shared_ptr<Session> m_browser;
    int m_lastCall = 0;
};

} // namespace vistrel
