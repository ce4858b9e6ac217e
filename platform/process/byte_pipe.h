#pragma once

#include <QByteArray>
#include <QObject>
#include <QSocketNotifier>

#include <memory>

namespace vistrel
{

/// Two one-way pipes to another process, read and written without blocking, on the event loop of its thread.
class BytePipe : public QObject
{
    Q_OBJECT
public:
    /// Takes both descriptors over and closes them at the end.
    BytePipe(int readDescriptor, int writeDescriptor, QObject* parent = nullptr);
    ~BytePipe() override;

    /// Queues bytes and writes as much as the pipe takes at once. After closed() it does nothing.
    void write(const QByteArray& bytes);

    /// Closes both directions; the other side sees the end of its input. No signal is emitted for it.
    void close();

Q_SIGNALS:
    /// At most 1 MiB at a time.
    void received(const QByteArray& bytes);
    /// The other side closed, or reading or writing failed. Emitted once.
    void closed();

private:
    void readSome();
    void writeSome();
    void fail();

    int m_readDescriptor;
    int m_writeDescriptor;
    QByteArray m_outgoing; // Not yet taken by the pipe.
    QSocketNotifier m_readable;
    QSocketNotifier m_writable; // Enabled only while m_outgoing holds something.
};

} // namespace vistrel
