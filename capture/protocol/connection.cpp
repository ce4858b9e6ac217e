#include "capture/protocol/connection.h"

using namespace Qt::StringLiterals;

namespace vistrel
{

Connection::Connection(std::unique_ptr<Transport> transport)
    : m_transport(std::move(transport)), m_browser(openSession(QString()))
{
    connect(m_transport.get(), &Transport::received, this, &Connection::dispatch);
    connect(m_transport.get(), &Transport::closed, this, &Connection::endAll);
}

Connection::~Connection() { close({Error::Kind::Closed, u"the connection to the browser was closed"_s, {}}); }

void Connection::close(const Error& reason)
{
    m_transport->disconnect(this);
    endAll(reason);
}

std::shared_ptr<Session> Connection::openSession(const QString& id)
{
    const std::shared_ptr<Session> session(new Session(*this, id));
    m_sessions.removeIf([](const auto& entry) { return entry.value().expired(); });
    m_sessions.insert(id, session);
    return session;
}

int Connection::send(const Session& session, const QString& method, const QJsonObject& params)
{
    m_transport->send(Message::call(++m_lastCall, session.id(), method, params));
    return m_lastCall;
}

void Connection::dispatch(const QByteArray& bytes)
{
    const auto message = Message::parse(bytes);
    if (!message) return endAll(message.error());
    const auto session = m_sessions.value(message->sessionId).lock();
    if (session) session->receive(*message);
}

void Connection::endAll(const Error& reason)
{
    // The first to end, so that the connection is closed for all who ask when their own session ends.
    m_browser->end(reason);
    const auto sessions = std::exchange(m_sessions, {});
    for (const auto& weak : sessions) {
        if (const auto session = weak.lock()) session->end(reason);
    }
}

} // namespace vistrel
