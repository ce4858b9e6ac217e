#pragma once

#include <QByteArray>

#include <functional>
#include <optional>
#include <utility>

namespace vistrel
{

/// What can be told of a zlib stream (RFC 1950) by unpacking it. Places are in bits from the stream's start,
/// and the lowest bit of a byte is its first (RFC 1951, 3.1.1).
struct DeflateBlocks {
    static constexpr qint64 kStart = 16; ///< Of the first block, after the header.
    /// How far back a block refers at most, in bytes of what is unpacked.
    static constexpr qint64 kWindow = 32768;

    QByteArray head;         ///< The first bytes: whole blocks of more than kWindow, or all.
    qint64 headEnd = 0;      ///< Where the blocks of the head end.
    qint64 lastBlock = 0;    ///< Where the last block begins: with the bit that tells so.
    qint64 end = 0;          ///< Where the blocks end, but for empty ones at the end.
    bool isShiftable = true; ///< No block up to there holds bytes as they are, on whole bytes of the stream.
    qint64 byteCount = 0;    ///< Of all that it unpacks to.
    quint32 checksum = 0;    ///< Adler-32 of all that; it was right.
};

/// Nothing when stream is damaged.
std::optional<DeflateBlocks> readDeflateBlocks(const QByteArray& stream);

/// Puts blocks of several zlib streams together as one, and hands that out in pieces as it grows.
class DeflateJoiner
{
public:
    using TakePiece = std::function<void(const QByteArray&)>;

    /// takePiece gets pieces of 256 to 512 KiB, and what there is at the end.
    explicit DeflateJoiner(TakePiece takePiece) : m_takePiece(std::move(takePiece)) {}

    /// Appends the blocks of stream from the place given, where one begins. They have to be shiftable.
    void append(const QByteArray& stream, const DeflateBlocks& blocks, qint64 from);

    /// The rest of the stream, with the checksum of all that it unpacks to. The last call.
    void finish(quint32 checksum);

private:
    void copy(const QByteArray& stream, qint64 from, qint64 to);
    void put(quint32 bits, int count);
    void handOut();

    TakePiece m_takePiece;
    QByteArray m_piece = QByteArray("\x78\x01"); // The largest window, fast compression.
    quint32 m_pending = 0;                       // The lowest m_count bits are not in m_piece yet.
    int m_count = 0;
};

} // namespace vistrel
