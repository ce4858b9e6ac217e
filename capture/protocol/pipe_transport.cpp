#include "capture/protocol/pipe_transport.h"

#include "platform/process/byte_pipe.h"

#include <QPointer>

using namespace Qt::StringLiterals;

namespace vistrel
{

PipeTransport::PipeTransport(BytePipe& pipe) : m_pipe(pipe)
{
    connect(&pipe, &BytePipe::received, this, &PipeTransport::split);
    connect(&pipe, &BytePipe::closed, this, [this] {
        Q_EMIT closed({Error::Kind::Closed, u"the browser closed its pipe"_s, {}});
    });
}

void PipeTransport::send(const QByteArray& message) { m_pipe.write(message + '\0'); }

void PipeTransport::split(const QByteArray& bytes)
{
    const auto messages = m_splitter.feed(bytes);
    if (!messages) {
        m_pipe.close();
        Q_EMIT closed(messages.error());
        return;
    }
    const QPointer self(this); // A message may lead to this object's end.
    for (const QByteArray& message : *messages) {
        Q_EMIT received(message);
        if (!self) return;
    }
}

} // namespace vistrel
