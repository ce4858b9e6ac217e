#include "capture/image/png_joiner.h"

#include "capture/image/deflate_blocks.h"
#include "capture/image/page_picture.h"

#include <QtEndian>

#include <utility>
#include <vector>
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

QByteArray chunk(QByteArrayView type, const QByteArray& content)
{
    QByteArray chunk;
    chunk.reserve(content.size() + kChunkFrame);
    const auto append = [&chunk](quint32 value) {
        value = qToBigEndian(value);
        chunk.append(reinterpret_cast<const char*>(&value), sizeof value);
    };
    append(quint32(content.size()));
    chunk.append(type).append(content);
    const auto* checked = reinterpret_cast<const Bytef*>(chunk.constData()) + sizeof(quint32);
    append(quint32(crc32(0, checked, uInt(type.size() + content.size()))));
    return chunk;
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

/// What of a strip's stream is taken over.
struct StripRows {
    QByteArray head; // A stream of the first rows, where they are not taken as they stand.
    DeflateBlocks headBlocks;
    DeflateBlocks blocks;
    qint64 from = DeflateBlocks::kStart; // The first block that is.
};

/// Without a row above, kUp takes nothing away, as kNone does with any row. The blocks that follow the head
/// do not refer to the byte that is exchanged. False when it cannot.
bool exchangeUp(StripRows& rows)
{
    rows.blocks.head[0] = kNone;
    rows.blocks.checksum = withoutUp(rows.blocks.checksum, rows.blocks.byteCount);
    rows.from = rows.blocks.headEnd;
    rows.head = packed(rows.blocks.head);
    const auto blocks = readDeflateBlocks(rows.head);
    if (!blocks || !blocks->isShiftable) return false;
    rows.headBlocks = *blocks;
    return true;
}

/// Nothing when the rows cannot be put below others.
std::optional<StripRows> planRows(const PngStrip& strip, bool isFirst)
{
    StripRows rows;
    const auto blocks = readDeflateBlocks(strip.pixels);
    if (!blocks || !blocks->isShiftable || blocks->head.isEmpty()) return std::nullopt;
    rows.blocks = *blocks;
    const char filter = rows.blocks.head.front();
    if (!isFirst && filter >= kAverage) return std::nullopt;
    if (!isFirst && filter == kUp && !exchangeUp(rows)) return std::nullopt;
    rows.blocks.head.clear();
    rows.headBlocks.head.clear();
    return rows;
}

/// Of all strips, in their order; nothing when they cannot be joined.
std::optional<std::vector<StripRows>> planRows(const QList<QByteArray>& files)
{
    std::vector<StripRows> plan;
    QByteArray kind;
    for (const QByteArray& file : files) {
        const auto strip = readStrip(file);
        if (!strip || (!plan.empty() && kindOf(*strip) != kind)) return std::nullopt;
        kind = kindOf(*strip);
        const auto rows = planRows(*strip, plan.empty());
        if (!rows) return std::nullopt;
        plan.push_back(*rows);
    }
    return plan.empty() ? std::nullopt : std::optional(std::move(plan));
}

/// Everything up to the pixels.
QByteArray headOf(const PngStrip& first, quint32 height)
{
    QByteArray header = first.header;
    qToBigEndian(height, header.data() + kHeight);
    return "\x89PNG\r\n\x1a\n" + chunk("IHDR", header) + first.preface;
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

bool joinPngStrips(const QList<QByteArray>& files, const std::function<void(const QByteArray&)>& write)
{
    const auto height = heightOf(files);
    const auto plan = planRows(files);
    if (!height || !plan) return false;
    DeflateJoiner joiner([&write](const QByteArray& piece) { write(chunk("IDAT", piece)); });
    quint32 checksum = 1; // Adler-32 of nothing.
    for (size_t i = 0; i < plan->size(); ++i) {
        const StripRows& rows = (*plan)[i];
        const auto strip = readStrip(files[qsizetype(i)]);
        if (i == 0) write(headOf(*strip, *height));
        if (!rows.head.isEmpty()) joiner.append(rows.head, rows.headBlocks, DeflateBlocks::kStart);
        joiner.append(strip->pixels, rows.blocks, rows.from);
        checksum = quint32(adler32_combine(checksum, rows.blocks.checksum, z_off_t(rows.blocks.byteCount)));
    }
    joiner.finish(checksum);
    write(chunk("IEND", {}));
    return true;
}

} // namespace vistrel
