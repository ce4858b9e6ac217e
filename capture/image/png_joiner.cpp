#include "capture/image/png_joiner.h"

#include "capture/image/deflate_blocks.h"
#include "capture/image/page_picture.h"

#include <QtEndian>

#include <zlib.h>

namespace vistrel
{

namespace
{

// Parts of a PNG file (ISO/IEC 15948): chunks of length, type, content and checksum follow the signature.
constexpr qsizetype kSignature = 8;
constexpr qsizetype kChunkFrame = 12;
constexpr qsizetype kHeader = 13; // Content of IHDR: width, height, three bytes, interlace method.
constexpr qsizetype kHeight = 4;
constexpr qsizetype kInterlace = 12;

// Filter methods of a row (ISO/IEC 15948, 9.2), its first byte: what is subtracted from the row's bytes.
constexpr char kNone = 0;
constexpr char kUp = 2;      // The row above: for the first one, as if nothing were.
constexpr char kAverage = 3; // Of the row above and another byte, as kPaeth = 4.

constexpr quint32 kAdlerBase = 65521; // RFC 1950, 8.2.
constexpr int kFast = 1;              // Of 1 to 9, as browsers compress in haste.

struct PngStrip {
    QByteArray header;  // Content of IHDR.
    QByteArray preface; // Chunks between that and the pixels.
    QByteArray pixels;  // A zlib stream of rows.
};

std::optional<PngStrip> readStrip(const QByteArray& file)
{
    PngStrip strip;
    strip.pixels.reserve(file.size());
    for (qsizetype at = kSignature; at + kChunkFrame <= file.size();) {
        const qsizetype length = qFromBigEndian<quint32>(file.constData() + at);
        if (length > file.size() - at - kChunkFrame) return std::nullopt;
        const QByteArrayView type(file.constData() + at + 4, 4);
        const QByteArrayView content(file.constData() + at + 8, length);
        if (type == "IHDR")
            strip.header = content.toByteArray();
        else if (type == "IDAT")
            strip.pixels += content;
        else if (strip.pixels.isEmpty())
            strip.preface += QByteArrayView(file).sliced(at, length + kChunkFrame);
        at += length + kChunkFrame;
    }
    const bool whole = strip.header.size() == kHeader && strip.header[kInterlace] == 0;
    return whole ? std::optional(strip) : std::nullopt;
}

/// What two strips of one picture have in common.
QByteArray kindOf(const PngStrip& strip)
{
    QByteArray kind = strip.header;
    return kind.remove(kHeight, sizeof(quint32));
}

void appendChunk(QByteArray& file, QByteArrayView type, const QByteArray& content)
{
    const auto number = [&file](quint32 value) {
        value = qToBigEndian(value);
        file.append(reinterpret_cast<const char*>(&value), sizeof value);
    };
    uLong check = crc32(0, reinterpret_cast<const Bytef*>(type.data()), uInt(type.size()));
    if (!content.isEmpty()) // Without bytes, crc32() begins anew.
        check = crc32(check, reinterpret_cast<const Bytef*>(content.constData()), uInt(content.size()));
    number(quint32(content.size()));
    file.append(type).append(content);
    number(quint32(check));
}

/// The checksum of bytes that had kUp at their start and now have kNone.
quint32 withoutUp(quint32 checksum, qint64 byteCount)
{
    const quint32 weight = quint32(byteCount % kAdlerBase) * kUp % kAdlerBase;
    const quint32 low = ((checksum & 0xFFFF) + kAdlerBase - kUp) % kAdlerBase;
    const quint32 high = ((checksum >> 16) + kAdlerBase - weight) % kAdlerBase;
    return high << 16 | low;
}

QByteArray packed(const QByteArray& bytes)
{
    uLongf size = compressBound(uLong(bytes.size()));
    QByteArray stream(qsizetype(size), Qt::Uninitialized);
    const auto* source = reinterpret_cast<const Bytef*>(bytes.constData());
    if (compress2(reinterpret_cast<Bytef*>(stream.data()), &size, source, uLong(bytes.size()), kFast) != Z_OK)
        size = 0;
    return stream.first(qsizetype(size));
}

/// Puts the rows of strips one below the other.
class RowJoiner
{
public:
    /// False when it cannot.
    bool append(const PngStrip& strip)
    {
        auto blocks = readDeflateBlocks(strip.pixels);
        if (!blocks || !blocks->isShiftable || blocks->head.isEmpty()) return false;
        const char filter = blocks->head.front();
        if (m_byteCount > 0 && filter >= kAverage) return false;
        qint64 from = DeflateBlocks::kStart;
        if (m_byteCount > 0 && filter == kUp) {
            if (!appendWithoutUp(*blocks)) return false;
            from = blocks->headEnd;
        }
        m_joiner.append(strip.pixels, *blocks, from);
        m_checksum = quint32(adler32_combine(m_checksum, blocks->checksum, z_off_t(blocks->byteCount)));
        m_byteCount += blocks->byteCount;
        return true;
    }

    /// What the joined rows have come to since the last call.
    QByteArray take() { return m_joiner.take(); }
    QByteArray finish() { return m_joiner.finish(m_checksum); }

private:
    /// Without a row above, kUp takes nothing away, as kNone does with any row. The blocks that follow the
    /// head do not refer to the byte that is exchanged.
    bool appendWithoutUp(DeflateBlocks& blocks)
    {
        blocks.head[0] = kNone;
        blocks.checksum = withoutUp(blocks.checksum, blocks.byteCount);
        const QByteArray stream = packed(blocks.head);
        const auto head = readDeflateBlocks(stream);
        if (!head || !head->isShiftable) return false;
        m_joiner.append(stream, *head, DeflateBlocks::kStart);
        return true;
    }

    DeflateJoiner m_joiner;
    quint32 m_checksum = 1; // Adler-32 of nothing.
    qint64 m_byteCount = 0;
};

/// Everything up to the pixels.
QByteArray headOf(const PngStrip& first, quint32 height)
{
    QByteArray header = first.header;
    qToBigEndian(height, header.data() + kHeight);
    QByteArray file("\x89PNG\r\n\x1a\n");
    appendChunk(file, "IHDR", header);
    return file + first.preface;
}

/// Of all strips, px.
std::optional<quint32> heightOf(const QList<QByteArray>& files)
{
    quint32 height = 0;
    for (const QByteArray& file : files) {
        const auto size = encodedSize(file, PagePicture::Encoding::Png);
        if (!size) return std::nullopt;
        height += quint32(size->height());
    }
    return height;
}

} // namespace

// One strip after the other, so that only one is held in pieces.
std::optional<QByteArray> joinPngStrips(const QList<QByteArray>& files)
{
    const auto height = heightOf(files);
    if (files.isEmpty() || !height) return std::nullopt;
    QByteArray joined;
    QByteArray kind;
    RowJoiner rows;
    for (const QByteArray& file : files) {
        const auto strip = readStrip(file);
        if (!strip || !rows.append(*strip)) return std::nullopt;
        if (joined.isEmpty()) {
            kind = kindOf(*strip);
            joined = headOf(*strip, *height);
        }
        if (kindOf(*strip) != kind) return std::nullopt;
        appendChunk(joined, "IDAT", rows.take());
    }
    appendChunk(joined, "IDAT", rows.finish());
    appendChunk(joined, "IEND", {});
    return joined;
}

} // namespace vistrel
