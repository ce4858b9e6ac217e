#include "capture/protocol/session.h"

#include "capture/protocol/connection.h"

#include <QTimer>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

Error timeout(const QString& what, Session::Limit limit)
{
    return {Error::Kind::Timeout, u"%1 took over %2 s"_s.arg(what).arg(double(limit.count()) / 1000), {}};
}

} // namespace

Session::Session(Connection& connection, QString id) : m_connection(&connection), m_id(std::move(id)) {}

Session::~Session()
{
    if (!m_ended) settleAll({Error::Kind::Closed, u"the session was given up"_s, {}});
}

Completion<Reply> Session::call(const QString& method, const QJsonObject& params, Limit limit)
{
    Completion<Reply> reply;
    if (m_ended) {
        reply.settle(*m_ended);
        return reply;
    }
    const auto keep = shared_from_this(); // A pipe that breaks under the call ends the session at once.
    const int number = m_connection->send(*this, method, params);
    if (m_ended) {
        reply.settle(*m_ended);
        return reply;
    }
    m_calls.insert(number, reply);
    QTimer::singleShot(limit, this, [this, number, method, limit] {
        if (m_calls.contains(number)) m_calls.take(number).settle(timeout(method, limit));
    });
    return reply;
}

void Session::post(const QString& method, const QJsonObject& params)
{
    if (!m_ended) m_connection->send(*this, method, params);
}

Completion<void> Session::until(std::function<bool()> condition, Limit limit, const QString& what)
{
    Completion<void> completion;
    if (m_ended) {
        completion.settle(*m_ended);
    } else if (condition()) {
        completion.settle({});
    } else {
        m_waits.append({std::move(condition), completion});
        QTimer::singleShot(limit, this,
                           [completion, what, limit] { completion.settle(timeout(what, limit)); });
    }
    return completion;
}

Completion<void> Session::pause(Limit time)
{
    Completion<void> completion;
    if (m_ended) {
        completion.settle(*m_ended);
        return completion;
    }
    m_waits.append({[] { return false; }, completion});
    QTimer::singleShot(time, this, [completion] { completion.settle({}); });
    return completion;
}

void Session::end(const Error& reason)
{
    if (m_ended) return;
    const auto keep = shared_from_this(); // What is resumed here may drop the last other reference.
    settleAll(reason);
}

void Session::settleAll(const Error& reason)
{
    m_ended = reason;
    const auto calls = std::exchange(m_calls, {});
    const auto waits = std::exchange(m_waits, {});
    for (const auto& reply : calls)
        reply.settle(reason);
    for (const auto& wait : waits)
        wait.completion.settle(reason);
}

void Session::receive(const Message& message)
{
    if (message.id == 0) {
        Q_EMIT received(message.method, message.params);
        testConditions();
    } else if (m_calls.contains(message.id)) {
        const auto reply = m_calls.take(message.id);
        if (message.error)
            reply.settle(*message.error);
        else
            reply.settle(message.reply);
    }
}

void Session::testConditions()
{
    QList<Wait> met;
    m_waits.removeIf([&met](const Wait& wait) {
        if (wait.completion.isSettled()) return true;
        if (!wait.condition()) return false;
        met.append(wait);
        return true;
    });
    for (const auto& wait : met)
        wait.completion.settle({});
}

} // namespace vistrel
