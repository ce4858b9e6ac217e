#include "capture/protocol/message_splitter.h"

using namespace Qt::StringLiterals;

namespace vistrel
{

Result<QList<QByteArray>> MessageSplitter::feed(const QByteArray& chunk)
{
    QList<QByteArray> messages;
    qsizetype start = 0;
    for (qsizetype end = chunk.indexOf('\0'); end >= 0; end = chunk.indexOf('\0', start)) {
        m_pending.append(chunk.constData() + start, end - start);
        messages.append(std::exchange(m_pending, {}));
        start = end + 1;
    }
    m_pending.append(chunk.constData() + start, chunk.size() - start);
    if (m_pending.size() > m_limitBytes)
        return Error{
            Error::Kind::Protocol, u"the browser sent a message of over %1 bytes"_s.arg(m_limitBytes), {}};
    return messages;
}

} // namespace vistrel
