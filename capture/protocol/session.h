#pragma once

#include "capture/protocol/completion.h"
#include "capture/protocol/message.h"

#include <QHash>
#include <QList>
#include <QObject>

#include <chrono>
#include <functional>

namespace vistrel
{

class Connection;

/// The channel to one target of the browser: calls out, replies and events in. Everything that is awaited on
/// it is settled when the session ends, so that a deadline, a cancellation, a crash and a lost browser all
/// stop a flow in the same way: end() with the reason.
class Session : public QObject, public std::enable_shared_from_this<Session>
{
    Q_OBJECT
public:
    /// Ends with Error::Kind::Closed when it is still open.
    ~Session() override;

    using Limit = std::chrono::milliseconds;
    /// For calls that the browser answers without loading or drawing anything.
    static constexpr Limit kShortCall = std::chrono::seconds(10);
    /// For what the session's end will end.
    static constexpr Limit kNoLimit = std::chrono::hours(24);

    [[nodiscard]] const QString& id() const { return m_id; }
    [[nodiscard]] bool isOpen() const { return !m_ended; }
    /// Why the session ended; only when it is not open.
    [[nodiscard]] const Error& reason() const { return *m_ended; }

    /// Calls method. Errors: Protocol (the browser refuses), Timeout (no reply within limit), or whatever the
    /// session ended with.
    Completion<Reply> call(const QString& method, const QJsonObject& params = {}, Limit limit = kShortCall);

    /// Calls method and drops whatever it answers; for requests that may fail without consequence.
    void post(const QString& method, const QJsonObject& params = {});

    /// Waits until condition holds; it is tested at once and after each event of this session (by then the
    /// listeners of received() have run). Error::Kind::Timeout after limit, with what in its message.
    Completion<void> until(std::function<bool()> condition, Limit limit, const QString& what);

    /// Waits for a time; fails only when the session ends first.
    Completion<void> pause(Limit time);

    /// Ends the session: settles every call and wait with reason, and lets later ones fail with it at once.
    /// A second call does nothing.
    void end(const Error& reason);

Q_SIGNALS:
    /// An event of the target.
    void received(const QString& method, const QJsonObject& params);

private:
    friend class Connection;
    struct Wait {
        std::function<bool()> condition;
        Completion<void> completion;
    };

    Session(Connection& connection, QString id);
    void receive(const Message& message);
    void settleAll(const Error& reason);
    void testConditions();

    Connection* m_connection; // Outlives every session that is open.
    QString m_id;
    QHash<int, Completion<Reply>> m_calls; // Added by call(); removed by the reply, the limit or the end.
    QList<Wait> m_waits; // Added by until(); removed when the condition holds, or by the end.
    std::optional<Error> m_ended;
};

} // namespace vistrel
