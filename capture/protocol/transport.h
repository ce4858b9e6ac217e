#pragma once

#include "platform/result.h"

#include <QByteArray>
#include <QObject>

namespace vistrel
{

/// Carries whole messages to and from a browser. Tests put a scripted one here.
class Transport : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;

    /// Queues one message; it never blocks. After closed() it does nothing.
    virtual void send(const QByteArray& message) = 0;

Q_SIGNALS:
    /// One whole message, in the order sent.
    void received(const QByteArray& message);
    /// No message will come any more. Emitted once.
    void closed(const vistrel::Error& reason);
};

} // namespace vistrel
