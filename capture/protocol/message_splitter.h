#pragma once

#include "platform/result.h"

#include <QByteArray>
#include <QList>

namespace vistrel
{

/// Cuts the browser's byte stream into NUL-terminated messages. No I/O, no JSON, one thread.
/// Total work is linear in the bytes fed, however they are chunked.
class MessageSplitter
{
public:
    /// A picture of 60 million pixels stays below 256 MiB even when it is noise.
    static constexpr qsizetype kDefaultLimitBytes = 256 * 1024 * 1024;

    explicit MessageSplitter(qsizetype limitBytes = kDefaultLimitBytes) : m_limitBytes(limitBytes) {}

    /// Adds chunk; returns the messages it completed, oldest first, without the NUL.
    /// Error::Kind::Protocol when an unfinished message passes the limit; feed() must not be called again.
    [[nodiscard]] Result<QList<QByteArray>> feed(const QByteArray& chunk);

private:
    QByteArray m_pending; // Bytes after the last NUL seen.
    qsizetype m_limitBytes;
};

} // namespace vistrel
