#include "capture/image/image_encoder.h"

#include "capture/image/bitmap_writer.h"
#include "capture/image/gif_writer.h"
#include "capture/image/jpeg_joiner.h"
#include "capture/image/picture_sink.h"
#include "capture/image/png_joiner.h"
#include "capture/image/strip_decoder.h"

#include <QHash>
#include <QRect>

#include <algorithm>
#include <cmath>
#include <functional>
#include <vector>

using namespace Qt::StringLiterals;
using vips::VImage;

namespace vistrel
{

namespace
{

constexpr qint64 kLargestBitmapFile = 0xFFFFFFFFLL; // Its header has 32 bits for the length.
// Of 1 to 9: on real pages 1 takes half the time of 6 for a seventh more bytes.
constexpr int kJoinedPngCompression = 1;

Error libraryError(const vips::VError& problem)
{
    return {Error::Kind::Format, QString::fromLocal8Bit(problem.what()).trimmed(), u"encoding the picture"_s};
}

/// Runs a step that uses the library and writes to a sink on device; the library's exceptions end here.
template<typename Step>
Result<void> guarded(QIODevice& device, Step step)
{
    prepareLibrary();
    PictureSink sink(device);
    Result<void> done;
    try {
        done = step(sink);
    } catch (const vips::VError& problem) {
        done = libraryError(problem);
    }
    const auto state = sink.state(); // What came of a full disk is told as a full disk.
    return state ? done : state;
}

/// All strips as one image, decoded as it is read, from top to bottom.
VImage decode(const PagePicture& picture)
{
    VImage image;
    for (const QByteArray& bytes : picture.strips()) {
        const VImage strip = decodeStrip(bytes, picture.encoding());
        image = image.is_null() ? strip : image.join(strip, VIPS_DIRECTION_VERTICAL);
    }
    return image;
}

/// Longest side that the format can hold, px.
int longestSide(ImageFormat format)
{
    switch (format) {
    case ImageFormat::Jpeg: return 65500; // Decoders refuse more, though the format goes up to 65,535.
    case ImageFormat::Gif: return 65535;
    case ImageFormat::Png:
    case ImageFormat::Bmp:
    case ImageFormat::Tiff: break;
    }
    return 1000000; // libpng's default.
}

/// Writes the file that the strips become without being decoded; false, and nothing is written, where they
/// cannot.
Result<bool> writeStrips(const PagePicture& picture, ImageFormat format, PictureSink& sink)
{
    const bool isJpeg = picture.encoding() == PagePicture::Encoding::Jpeg;
    const auto write = [&sink](const QByteArray& bytes) { sink.write(bytes.constData(), bytes.size()); };
    if (format != (isJpeg ? ImageFormat::Jpeg : ImageFormat::Png)) return false;
    if (picture.strips().size() == 1) {
        write(picture.strips().first());
        return true;
    }
    if (!isJpeg) return joinPngStrips(picture.strips(), write);
    const auto joined = joinJpegStrips(picture.strips());
    if (!joined) return joined.error();
    write(*joined);
    return true;
}

/// open gives the picture, to be read from the top; it may be asked more than once.
Result<void> encode(const std::function<VImage()>& open, ImageFormat format, int quality, PictureSink& sink)
{
    const auto options = [] { return VImage::option()->set("strip", true); };
    switch (format) {
    case ImageFormat::Png:
        open().pngsave_target(sink.target(), options()->set("compression", kJoinedPngCompression));
        break;
    case ImageFormat::Jpeg:
        open().jpegsave_target(sink.target(), options()
                                                  ->set("Q", std::clamp(quality, 1, 100))
                                                  ->set("subsample_mode", quality >= kFullColourQuality
                                                                              ? VIPS_FOREIGN_SUBSAMPLE_OFF
                                                                              : VIPS_FOREIGN_SUBSAMPLE_ON));
        break;
    case ImageFormat::Gif: return writeGif(open, sink);
    case ImageFormat::Bmp: writeBitmap(open(), sink); break;
    case ImageFormat::Tiff:
        open().tiffsave_target(sink.target(), options()
                                                  ->set("compression", VIPS_FOREIGN_TIFF_COMPRESSION_LZW)
                                                  ->set("predictor", VIPS_FOREIGN_TIFF_PREDICTOR_HORIZONTAL));
        break;
    }
    return {};
}

/// The part of a picture that a thumbnail of size shows.
QRect coveredPart(QSize picture, QSize size)
{
    const double scale =
        std::max(double(size.width()) / picture.width(), double(size.height()) / picture.height());
    const int width = std::clamp(int(std::lround(size.width() / scale)), 1, picture.width());
    const int height = std::clamp(int(std::lround(size.height() / scale)), 1, picture.height());
    return {(picture.width() - width) / 2, 0, width, height};
}

VImage shrink(const PagePicture& picture, QSize size)
{
    const QRect part = coveredPart(picture.size(), size);
    return decode(picture)
        .extract_area(part.x(), part.y(), part.width(), part.height())
        .thumbnail_image(size.width(),
                         VImage::option()->set("height", size.height())->set("size", VIPS_SIZE_FORCE));
}

} // namespace

std::optional<ImageFormat> imageFormatOf(const QString& ending)
{
    static const QHash<QString, ImageFormat> formats{
        {u"png"_s, ImageFormat::Png},  {u"jpg"_s, ImageFormat::Jpeg}, {u"jpeg"_s, ImageFormat::Jpeg},
        {u"gif"_s, ImageFormat::Gif},  {u"bmp"_s, ImageFormat::Bmp},  {u"tif"_s, ImageFormat::Tiff},
        {u"tiff"_s, ImageFormat::Tiff}};
    const auto found = formats.constFind(ending.toLower());
    return found == formats.constEnd() ? std::nullopt : std::optional(*found);
}

Result<void> checkFits(QSize size, ImageFormat format)
{
    const int side = std::max(size.width(), size.height());
    const bool small = format != ImageFormat::Bmp || bitmapFileBytes(size) <= kLargestBitmapFile;
    if (side <= longestSide(format) && small) return {};
    return Error{Error::Kind::TooLarge,
                 u"the format cannot hold a picture of %1 x %2 px"_s.arg(size.width()).arg(size.height()),
                 {}};
}

Result<void> encodeImage(const PagePicture& picture, ImageFormat format, int quality, QIODevice& device)
{
    const auto fits = checkFits(picture.size(), format);
    if (!fits) return fits;
    return guarded(device, [&](PictureSink& sink) -> Result<void> {
        const auto written = writeStrips(picture, format, sink);
        if (!written) return written.error();
        return *written ? Result<void>() : encode([&] { return decode(picture); }, format, quality, sink);
    });
}

Result<void> encodeThumbnail(const PagePicture& picture, ImageFormat format, int quality, QSize size,
                             QIODevice& device)
{
    if (size != size.expandedTo({1, 1}).boundedTo({kLongestThumbnailSide, kLongestThumbnailSide})) {
        const QString words = u"a thumbnail of %1 x %2 px is none: 1 to %3 px a side can be made"_s;
        return Error{
            Error::Kind::Usage, words.arg(size.width()).arg(size.height()).arg(kLongestThumbnailSide), {}};
    }
    return guarded(device, [&](PictureSink& sink) {
        return encode([&] { return shrink(picture, size); }, format, quality, sink);
    });
}

} // namespace vistrel
