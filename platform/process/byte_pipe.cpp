#include "platform/process/byte_pipe.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace vistrel
{

namespace
{

constexpr int kChunkBytes = 1024 * 1024;

void prepare(int descriptor)
{
    ::fcntl(descriptor, F_SETFL, ::fcntl(descriptor, F_GETFL) | O_NONBLOCK);
    ::fcntl(descriptor, F_SETPIPE_SZ,
            kChunkBytes); // Fewer switches for pictures; the default 64 KiB works too.
}

void closeDescriptor(int& descriptor)
{
    if (descriptor >= 0) ::close(descriptor);
    descriptor = -1;
}

/// A pipe whose reader is gone is an error to be told, not a signal to die of.
void ignoreBrokenPipes() { [[maybe_unused]] static const auto previous = ::signal(SIGPIPE, SIG_IGN); }

bool isTemporary(int error) { return error == EAGAIN || error == EINTR; }

} // namespace

BytePipe::BytePipe(int readDescriptor, int writeDescriptor, QObject* parent)
    : QObject(parent),
      m_readDescriptor(readDescriptor),
      m_writeDescriptor(writeDescriptor),
      m_readable(readDescriptor, QSocketNotifier::Read),
      m_writable(writeDescriptor, QSocketNotifier::Write)
{
    ignoreBrokenPipes();
    prepare(readDescriptor);
    prepare(writeDescriptor);
    m_writable.setEnabled(false);
    connect(&m_readable, &QSocketNotifier::activated, this, &BytePipe::readSome);
    connect(&m_writable, &QSocketNotifier::activated, this, &BytePipe::writeSome);
}

BytePipe::~BytePipe() { close(); }

void BytePipe::write(const QByteArray& bytes)
{
    if (m_writeDescriptor < 0) return;
    m_outgoing += bytes;
    writeSome();
}

void BytePipe::close()
{
    m_readable.setEnabled(false);
    m_writable.setEnabled(false);
    closeDescriptor(m_readDescriptor);
    closeDescriptor(m_writeDescriptor);
    m_outgoing.clear();
}

void BytePipe::readSome()
{
    QByteArray chunk(kChunkBytes, Qt::Uninitialized);
    const ssize_t count = ::read(m_readDescriptor, chunk.data(), size_t(chunk.size()));
    if (count > 0) {
        chunk.truncate(count);
        Q_EMIT received(chunk);
    } else if (count == 0 || !isTemporary(errno)) {
        fail();
    }
}

void BytePipe::writeSome()
{
    while (!m_outgoing.isEmpty()) {
        const ssize_t count = ::write(m_writeDescriptor, m_outgoing.constData(), size_t(m_outgoing.size()));
        if (count < 0) break;
        m_outgoing.remove(0, count);
    }
    if (!m_outgoing.isEmpty() && !isTemporary(errno)) return fail();
    m_writable.setEnabled(!m_outgoing.isEmpty());
}

void BytePipe::fail()
{
    if (m_readDescriptor < 0) return;
    close();
    Q_EMIT closed();
}

} // namespace vistrel
