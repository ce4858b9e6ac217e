#pragma once

#include <QByteArray>
#include <QSize>

namespace vistrel
{

/// Builds a BMP file: 24 bits a pixel, uncompressed, rows from the bottom upwards (BITMAPFILEHEADER and
/// BITMAPINFOHEADER, the form that every reader knows). No library of ours writes it in parts.
class BitmapWriter
{
public:
    explicit BitmapWriter(QSize size);

    /// Length of the file for a picture of size.
    [[nodiscard]] static qint64 fileBytes(QSize size);

    /// Adds the rows next above those added so far: count rows of width x 3 bytes, red, green, blue, the
    /// topmost first, without padding.
    void addRowsAbove(const uchar* rgb, int count);

    /// The file, complete once all rows were added. The writer is empty afterwards.
    [[nodiscard]] QByteArray take() { return std::move(m_file); }

private:
    QSize m_size;
    QByteArray m_file;
};

} // namespace vistrel
