#pragma once

#include "platform/result.h"

#include <QBuffer>

namespace vistrel::test
{

/// The file that encode, which is given a device, writes there.
template<typename Encode>
Result<QByteArray> fileOf(Encode encode)
{
    QBuffer buffer;
    buffer.open(QBuffer::ReadWrite);
    const Result<void> done = encode(buffer);
    if (!done) return done.error();
    return buffer.data();
}

} // namespace vistrel::test
