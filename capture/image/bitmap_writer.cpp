#include "capture/image/bitmap_writer.h"

#include <QtEndian>

namespace vistrel
{

namespace
{

constexpr quint32 kFileHeaderBytes = 14;
constexpr quint32 kInfoHeaderBytes = 40;
constexpr quint32 kPixelsPerMetre = 3780; // 96 per inch.

qint64 rowBytes(QSize size) { return (qint64(size.width()) * 3 + 3) / 4 * 4; }

template<typename T>
void append(QByteArray& file, T value)
{
    const T bytes = qToLittleEndian(value);
    file.append(reinterpret_cast<const char*>(&bytes), sizeof bytes);
}

} // namespace

qint64 BitmapWriter::fileBytes(QSize size)
{
    return kFileHeaderBytes + kInfoHeaderBytes + rowBytes(size) * size.height();
}

BitmapWriter::BitmapWriter(QSize size) : m_size(size)
{
    const qint64 pixels = rowBytes(size) * size.height();
    const quint32 offset = kFileHeaderBytes + kInfoHeaderBytes;
    m_file.reserve(offset + pixels);
    m_file.append("BM");
    append<quint32>(m_file, quint32(offset + pixels));
    append<quint32>(m_file, 0);
    append<quint32>(m_file, offset);
    append<quint32>(m_file, kInfoHeaderBytes);
    append<qint32>(m_file, size.width());
    append<qint32>(m_file, size.height());
    append<quint16>(m_file, 1);  // Planes.
    append<quint16>(m_file, 24); // Bits per pixel.
    append<quint32>(m_file, 0);  // No compression.
    append<quint32>(m_file, quint32(pixels));
    append<quint32>(m_file, kPixelsPerMetre);
    append<quint32>(m_file, kPixelsPerMetre);
    append<quint32>(m_file, 0); // No palette.
    append<quint32>(m_file, 0);
}

void BitmapWriter::addRowsAbove(const uchar* rgb, int count)
{
    const qsizetype width = m_size.width();
    for (int row = count - 1; row >= 0; --row) {
        const qsizetype start = m_file.size();
        m_file.resize(start + rowBytes(m_size));
        char* out = m_file.data() + start;
        const uchar* in = rgb + row * width * 3;
        for (qsizetype x = 0; x < width; ++x, out += 3, in += 3) {
            out[0] = char(in[2]);
            out[1] = char(in[1]);
            out[2] = char(in[0]);
        }
        while (out < m_file.data() + m_file.size())
            *out++ = 0;
    }
}

} // namespace vistrel
