#include "capture/image/bitmap_writer.h"

#include "capture/image/row_reader.h"

#include <QtEndian>

namespace vistrel
{

namespace
{

constexpr quint32 kFileHeaderBytes = 14;
constexpr quint32 kInfoHeaderBytes = 40;
constexpr quint32 kHeaderBytes = kFileHeaderBytes + kInfoHeaderBytes;
constexpr quint32 kPixelsPerMetre = 3780; // 96 per inch.

qint64 rowBytes(int width) { return (qint64(width) * 3 + 3) / 4 * 4; }

template<typename T>
void append(QByteArray& bytes, T value)
{
    const T little = qToLittleEndian(value);
    bytes.append(reinterpret_cast<const char*>(&little), sizeof little);
}

QByteArray headerFor(QSize size)
{
    QByteArray header("BM");
    append<quint32>(header, quint32(bitmapFileBytes(size)));
    append<quint32>(header, 0);
    append<quint32>(header, kHeaderBytes);
    append<quint32>(header, kInfoHeaderBytes);
    append<qint32>(header, size.width());
    append<qint32>(header, size.height());
    append<quint16>(header, 1);  // Planes.
    append<quint16>(header, 24); // Bits per pixel.
    append<quint32>(header, 0);  // No compression.
    append<quint32>(header, quint32(bitmapFileBytes(size) - kHeaderBytes));
    append<quint32>(header, kPixelsPerMetre);
    append<quint32>(header, kPixelsPerMetre);
    append<quint32>(header, 0); // No palette.
    append<quint32>(header, 0);
    return header;
}

void swapChannels(const uchar* rgb, int width, char* bgr)
{
    for (int x = 0; x < width; ++x, rgb += 3, bgr += 3) {
        bgr[0] = char(rgb[2]);
        bgr[1] = char(rgb[1]);
        bgr[2] = char(rgb[0]);
    }
}

/// The same rows as the file has them: from the bottom upwards, padded with zeros.
QByteArray bottomUp(const Rows& rows, int width)
{
    QByteArray bytes(rows.count * rowBytes(width), '\0');
    for (int row = 0; row < rows.count; ++row)
        swapChannels(rows.row(row), width, bytes.data() + (rows.count - 1 - row) * rowBytes(width));
    return bytes;
}

} // namespace

qint64 bitmapFileBytes(QSize size) { return kHeaderBytes + rowBytes(size.width()) * size.height(); }

void writeBitmap(const vips::VImage& image, PictureSink& sink)
{
    const QByteArray header = headerFor({image.width(), image.height()});
    sink.write(header.constData(), header.size());
    readRows(image, [&](const Rows& rows) {
        const QByteArray bytes = bottomUp(rows, image.width());
        const qint64 rowsBefore = image.height() - rows.top - rows.count;
        return sink.seek(kHeaderBytes + rowsBefore * rowBytes(image.width())) &&
               sink.write(bytes.constData(), bytes.size());
    });
}

} // namespace vistrel
