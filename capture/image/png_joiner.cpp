#include "capture/image/png_joiner.h"

#include "capture/image/deflate_blocks.h"

#include <QtEndian>

#include <zlib.h>

#include <limits>
#include <vector>

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

quint32 heightOf(const PngStrip& strip)
{
    return qFromBigEndian<quint32>(strip.header.constData() + kHeight);
}

void appendChunk(QByteArray& file, const char* type, const QByteArray& content)
{
    const QByteArray body = type + content;
    const auto number = [&file](quint32 value) {
        value = qToBigEndian(value);
        file.append(reinterpret_cast<const char*>(&value), sizeof value);
    };
    number(quint32(content.size()));
    file.append(body);
    number(quint32(crc32(0, reinterpret_cast<const Bytef*>(body.constData()), uInt(body.size()))));
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

std::optional<std::vector<PngStrip>> readStrips(const QList<QByteArray>& files)
{
    std::vector<PngStrip> strips;
    for (const QByteArray& file : files) {
        auto strip = readStrip(file);
        if (!strip || (!strips.empty() && kindOf(*strip) != kindOf(strips.front()))) return std::nullopt;
        strips.push_back(std::move(*strip));
    }
    return strips;
}

QByteArray fileOf(const PngStrip& first, quint32 height, const QByteArray& pixels)
{
    QByteArray file("\x89PNG\r\n\x1a\n");
    QByteArray header = first.header;
    qToBigEndian(height, header.data() + kHeight);
    appendChunk(file, "IHDR", header);
    file += first.preface;
    appendChunk(file, "IDAT", pixels);
    appendChunk(file, "IEND", {});
    return file;
}

} // namespace

std::optional<QByteArray> joinPngStrips(const QList<QByteArray>& files)
{
    const auto strips = readStrips(files);
    if (!strips || strips->empty()) return std::nullopt;
    RowJoiner rows;
    quint32 height = 0;
    for (const PngStrip& strip : *strips) {
        if (!rows.append(strip)) return std::nullopt;
        height += heightOf(strip);
    }
    const QByteArray pixels = rows.finish();
    if (pixels.size() > std::numeric_limits<qint32>::max()) return std::nullopt; // The longest chunk.
    return fileOf(strips->front(), height, pixels);
}

} // namespace vistrel
