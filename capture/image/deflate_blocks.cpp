#include "capture/image/deflate_blocks.h"

#include <QtEndian>

#define ZLIB_CONST // What is unpacked stays as it is.
#include <zlib.h>

#include <algorithm>
#include <array>
#include <utility>

namespace vistrel
{

namespace
{

// What inflate() tells of where it stands, in z_stream::data_type.
constexpr int kUnusedBits = 7;
constexpr int kInLastBlock = 64;
constexpr int kBetweenBlocks = 128;

constexpr quint32 kStoredBlock = 0;    // RFC 1951, 3.2.3.
constexpr quint32 kEmptyLastBlock = 3; // With the fixed codes: ten bits, all but the first two are 0.
constexpr qint64 kPiece = 256 * 1024;  // Bytes that are handed out at once: so many, up to twice that.
constexpr qsizetype kTrailer = 4;      // The checksum, in bytes.

/// The count bits at place, at most 8. A byte beyond them is there.
quint32 bitsAt(const QByteArray& bytes, qint64 place, int count)
{
    const auto byte = qFromLittleEndian<quint16>(bytes.constData() + place / 8);
    return quint32(byte) >> (place % 8) & ((1U << count) - 1);
}

/// Unpacks a stream block by block.
class BlockReader
{
public:
    /// bytes are to outlive the reader.
    explicit BlockReader(const QByteArray& bytes)
    {
        m_stream.next_in = reinterpret_cast<const Bytef*>(bytes.constData());
        m_stream.avail_in = uInt(bytes.size());
        m_state = inflateInit(&m_stream);
    }
    BlockReader(const BlockReader&) = delete;
    BlockReader& operator=(const BlockReader&) = delete;
    ~BlockReader() { inflateEnd(&m_stream); }

    /// Goes on to the end of the header, of a block or of the stream; adds what it unpacks to head, if any.
    /// False when there is nothing more, or nothing good.
    bool next(QByteArray* head)
    {
        do {
            m_stream.next_out = reinterpret_cast<Bytef*>(m_piece.data());
            m_stream.avail_out = uInt(m_piece.size());
            if (m_state == Z_OK) m_state = inflate(&m_stream, Z_BLOCK);
            const auto count = qsizetype(m_piece.size() - m_stream.avail_out);
            if (head != nullptr) head->append(m_piece.data(), count);
            m_byteCount += count;
        } while (m_state == Z_OK && (m_stream.data_type & kBetweenBlocks) == 0);
        return m_state == Z_OK;
    }

    [[nodiscard]] bool isComplete() const { return m_state == Z_STREAM_END; }
    [[nodiscard]] bool isInLastBlock() const { return (m_stream.data_type & kInLastBlock) != 0; }
    [[nodiscard]] qint64 place() const
    {
        return qint64(m_stream.total_in) * 8 - (m_stream.data_type & kUnusedBits);
    }
    [[nodiscard]] qint64 byteCount() const { return m_byteCount; }
    [[nodiscard]] quint32 checksum() const { return quint32(m_stream.adler); }

private:
    z_stream m_stream{};
    std::array<char, 64 * 1024> m_piece{};
    int m_state = Z_OK;
    qint64 m_byteCount = 0;
};

} // namespace

std::optional<DeflateBlocks> readDeflateBlocks(const QByteArray& stream)
{
    BlockReader reader(stream);
    DeflateBlocks blocks;
    bool inHead = true;
    bool anyStored = false;
    while (reader.next(inHead ? &blocks.head : nullptr)) {
        if (reader.place() / 8 + kTrailer > stream.size()) return std::nullopt;
        if (reader.byteCount() > blocks.byteCount) {
            if (inHead) blocks.headEnd = reader.place();
            inHead = blocks.head.size() <= DeflateBlocks::kWindow;
            blocks.end = reader.place();
            blocks.isShiftable = !anyStored;
            blocks.byteCount = reader.byteCount();
        }
        if (reader.isInLastBlock()) continue;
        blocks.lastBlock = reader.place();
        anyStored |= bitsAt(stream, blocks.lastBlock + 1, 2) == kStoredBlock;
    }
    if (!reader.isComplete()) return std::nullopt;
    blocks.checksum = reader.checksum();
    return blocks;
}

void DeflateJoiner::append(const QByteArray& stream, const DeflateBlocks& blocks, qint64 from)
{
    if (from <= blocks.lastBlock && blocks.lastBlock < blocks.end) {
        copy(stream, std::exchange(from, blocks.lastBlock + 1), blocks.lastBlock);
        put(0, 1);
    }
    copy(stream, from, blocks.end);
}

void DeflateJoiner::copy(const QByteArray& stream, qint64 from, qint64 to)
{
    quint32 pending = m_pending; // Not the member, which every byte written might be a part of.
    while (to - from >= 8) {
        const qint64 bytes = std::min((to - from) / 8, kPiece);
        const qsizetype size = m_piece.size();
        m_piece.resize(size + bytes);
        char* target = m_piece.data() + size;
        for (const qint64 end = from + bytes * 8; from < end; from += 8) {
            pending |= bitsAt(stream, from, 8) << m_count;
            *target++ = char(pending);
            pending >>= 8;
        }
        if (m_piece.size() >= kPiece) handOut();
    }
    m_pending = pending;
    if (from < to) put(bitsAt(stream, from, int(to - from)), int(to - from));
}

void DeflateJoiner::put(quint32 bits, int count)
{
    m_pending |= bits << m_count;
    m_count += count;
    for (; m_count >= 8; m_count -= 8) {
        m_piece.append(char(m_pending));
        m_pending >>= 8;
    }
}

void DeflateJoiner::handOut()
{
    m_takePiece(m_piece);
    m_piece.resize(0); // Keeps its memory.
}

void DeflateJoiner::finish(quint32 checksum)
{
    put(kEmptyLastBlock, 8);
    put(0, 2 + 7); // The block's end, and the rest of its last byte.
    std::array<char, sizeof checksum> trailer{};
    qToBigEndian(checksum, trailer.data());
    m_piece.append(trailer.data(), trailer.size());
    handOut();
}

} // namespace vistrel
