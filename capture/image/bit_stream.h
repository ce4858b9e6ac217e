#pragma once

#include <QByteArray>
#include <QtEndian>

#include <algorithm>
#include <array>

namespace vistrel
{

/// Reads bytes bit by bit, the highest first. Past the end there are zeros.
class BitReader
{
public:
    static constexpr qsizetype kPadding = 8; ///< Zero bytes that follow what is to be read.

    /// bytes, with their padding, are to outlive the reader.
    explicit BitReader(const QByteArray& bytes)
        : m_bytes(bytes.constData()), m_endByte(bytes.size() - kPadding)
    {
    }

    /// The next 32 bits or more, the first of them on top.
    [[nodiscard]] quint64 ahead()
    {
        if (m_ready < 32) fill();
        return m_ahead;
    }

    /// At most as many as ahead() told.
    void skip(int bits)
    {
        m_ahead <<= bits;
        m_ready -= bits;
    }

    /// Bits that are left; below 0 when more were skipped than there were.
    [[nodiscard]] qsizetype left() const { return (m_endByte - m_nextByte) * 8 + m_ready; }

private:
    /// Bits below those that are ready are there already in part: they are the same.
    void fill()
    {
        m_ahead |= qFromBigEndian<quint64>(m_bytes + std::min(m_nextByte, m_endByte)) >> m_ready;
        const int bytes = (63 - m_ready) / 8;
        m_nextByte += bytes;
        m_ready += bytes * 8;
    }

    const char* m_bytes;
    qsizetype m_endByte;
    qsizetype m_nextByte = 0;
    quint64 m_ahead = 0;
    int m_ready = 0; // Bits of m_ahead.
};

/// Appends bits, the highest first, to the coded pixels of a JPEG file: a byte of all ones is followed by a
/// zero byte (ITU-T T.81, B.1.1.5).
class JpegBitWriter
{
public:
    /// file is to outlive the writer.
    explicit JpegBitWriter(QByteArray& file) : m_file(file) {}

    /// count: 0 to 32; the bits above them are 0.
    void put(quint32 bits, int count)
    {
        m_pending = m_pending << count | bits;
        m_count += count;
        if (m_count >= kWord) putWord();
    }

    /// Fills the last byte with ones. To be called last.
    void finish()
    {
        put(0x7F, 7);
        for (; m_count >= 8; m_count -= 8)
            putByte(uchar(m_pending >> (m_count - 8)));
        drain();
    }

private:
    static constexpr int kWord = 32;

    void putWord()
    {
        m_count -= kWord;
        const auto word = quint32(m_pending >> m_count);
        if (m_used + 2 * sizeof word > m_buffer.size()) drain();
        if (hasByteOfOnes(word)) {
            for (int shift = kWord - 8; shift >= 0; shift -= 8)
                putByte(uchar(word >> shift));
        } else {
            qToBigEndian(word, &m_buffer[m_used]);
            m_used += sizeof word;
        }
    }

    /// True also for a byte that a carry from the one below fills up.
    static bool hasByteOfOnes(quint32 word) { return (word & ~(word + 0x01010101) & 0x80808080) != 0; }

    void putByte(uchar byte)
    {
        m_buffer[m_used++] = char(byte);
        if (byte == 0xFF) m_buffer[m_used++] = 0;
    }

    void drain()
    {
        m_file.append(m_buffer.data(), qsizetype(m_used));
        m_used = 0;
    }

    QByteArray& m_file;
    std::array<char, 4096> m_buffer;
    size_t m_used = 0;
    quint64 m_pending = 0; // The lowest m_count bits are not in the buffer yet.
    int m_count = 0;
};

} // namespace vistrel
