#pragma once

#include <QByteArray>

#include <zlib.h>

namespace vistrel::test
{

/// plain as a gzip file.
inline QByteArray gzip(const QByteArray& plain)
{
    z_stream stream{};
    deflateInit2(&stream, 9, Z_DEFLATED, 15 + 16, 8, Z_DEFAULT_STRATEGY);
    QByteArray packed(qsizetype(deflateBound(&stream, uLong(plain.size()))), Qt::Uninitialized);
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(plain.constData()));
    stream.avail_in = uInt(plain.size());
    stream.next_out = reinterpret_cast<Bytef*>(packed.data());
    stream.avail_out = uInt(packed.size());
    deflate(&stream, Z_FINISH);
    deflateEnd(&stream);
    packed.truncate(qsizetype(stream.total_out));
    return packed;
}

} // namespace vistrel::test
