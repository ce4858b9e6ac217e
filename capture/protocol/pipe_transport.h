#pragma once

#include "capture/protocol/message_splitter.h"
#include "capture/protocol/transport.h"

namespace vistrel
{

class BytePipe;

/// The browser's DevTools pipe: JSON messages, each ended by a NUL byte, on the browser's descriptors 3 and 4
/// (Chromium's --remote-debugging-pipe).
class PipeTransport : public Transport
{
    Q_OBJECT
public:
    /// pipe must outlive this object.
    explicit PipeTransport(BytePipe& pipe);

    void send(const QByteArray& message) override;

private:
    void split(const QByteArray& bytes);

    BytePipe& m_pipe;
    MessageSplitter m_splitter;
};

} // namespace vistrel
