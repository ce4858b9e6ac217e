#include "capture/image/gif_writer.h"

#include <QImage>
#include <QImageReader>

#include <cgif.h>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr int kAllocationLimitMiB =
    1024; // Counted at 32 bits a pixel; the default refuses pages of 34 million pixels.

int append(void* file, const uint8_t* data, const size_t count)
{
    static_cast<QByteArray*>(file)->append(reinterpret_cast<const char*>(data), qsizetype(count));
    return 0;
}

QByteArray paletteOf(const QImage& image)
{
    QByteArray palette;
    for (const QRgb colour : image.colorTable())
        palette.append(char(qRed(colour))).append(char(qGreen(colour))).append(char(qBlue(colour)));
    return palette;
}

/// The palette indices without the padding of QImage's rows.
QByteArray indicesOf(const QImage& image)
{
    QByteArray indices;
    indices.reserve(qsizetype(image.width()) * image.height());
    for (int y = 0; y < image.height(); ++y)
        indices.append(reinterpret_cast<const char*>(image.constScanLine(y)), image.width());
    return indices;
}

uint8_t* bytes(QByteArray& array) { return reinterpret_cast<uint8_t*>(array.data()); }

} // namespace

Result<QByteArray> gifOfPalettePng(const QByteArray& png)
{
    QImageReader::setAllocationLimit(kAllocationLimitMiB);
    const QImage image = QImage::fromData(png, "PNG").convertToFormat(QImage::Format_Indexed8);
    if (image.isNull()) return Error{Error::Kind::Format, u"no picture with a palette"_s, u"writing a GIF"_s};
    QByteArray palette = paletteOf(image);
    QByteArray indices = indicesOf(image);
    QByteArray file;

    CGIF_Config config{};
    config.pGlobalPalette = bytes(palette);
    config.numGlobalPaletteEntries = uint16_t(palette.size() / 3);
    config.width = uint16_t(image.width());
    config.height = uint16_t(image.height());
    config.pWriteFn = append;
    config.pContext = &file;
    CGIF_FrameConfig frame{};
    frame.pImageData = bytes(indices);
    CGIF* gif = cgif_newgif(&config);
    const bool added = gif != nullptr && cgif_addframe(gif, &frame) == CGIF_OK;
    const bool closed = gif != nullptr && cgif_close(gif) == CGIF_OK;
    if (!added || !closed)
        return Error{Error::Kind::Format, u"the frame could not be written"_s, u"writing a GIF"_s};
    return file;
}

} // namespace vistrel
