#include "batch/gunzip.h"

#include <zlib.h>

#include <array>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr int kGzipWindow = 15 + 16; // inflateInit2(): the largest window, with a gzip header.

/// Unpacks what stream holds, until its end, an error, or more than limit bytes.
int inflateAll(z_stream& stream, QByteArray& content, qsizetype limit)
{
    std::array<char, 64 * 1024> piece{};
    int code = Z_OK;
    while (code == Z_OK && content.size() <= limit) {
        stream.next_out = reinterpret_cast<Bytef*>(piece.data());
        stream.avail_out = uInt(piece.size());
        code = inflate(&stream, Z_NO_FLUSH);
        content.append(piece.data(), qsizetype(piece.size() - stream.avail_out));
    }
    return code;
}

} // namespace

bool isGzip(const QByteArray& bytes) { return bytes.startsWith("\x1f\x8b"); }

Result<QByteArray> gunzip(const QByteArray& bytes, qsizetype limit)
{
    QByteArray packed = bytes; // zlib's interface is not const.
    z_stream stream{};
    stream.next_in = reinterpret_cast<Bytef*>(packed.data());
    stream.avail_in = uInt(packed.size());
    if (inflateInit2(&stream, kGzipWindow) != Z_OK)
        return Error{Error::Kind::Io, u"there is no memory for unpacking"_s, {}};
    QByteArray content;
    const int code = inflateAll(stream, content, limit);
    inflateEnd(&stream);
    if (content.size() > limit)
        return Error{Error::Kind::TooLarge, u"it unpacks to over %1 MiB"_s.arg(limit / (1024 * 1024)), {}};
    if (code == Z_STREAM_END) return content;
    return Error{Error::Kind::Format, u"the gzip file is damaged"_s, {}};
}

} // namespace vistrel
