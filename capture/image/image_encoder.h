#pragma once

#include "capture/image/page_picture.h"

#include <QIODevice>

#include <optional>

namespace vistrel
{

enum class ImageFormat { Png, Jpeg, Gif, Bmp, Tiff };

/// By a file name's ending, without its dot and in any case: png, jpg, jpeg, gif, bmp, tif, tiff.
std::optional<ImageFormat> imageFormatOf(const QString& ending);

/// Error::Kind::TooLarge when format cannot hold a picture of size (JPEG and GIF: 65,500 and 65,535 px a
/// side; BMP: 4 GiB in all).
Result<void> checkFits(QSize size, ImageFormat format);

/// From this quality on, JPEG files keep the colour of each pixel; below, as browsers write them, one colour
/// for every four.
constexpr int kFullColourQuality = 90;

/// Writes the image file to device, which is open for reading and writing, of random access and at its start.
/// PNG and TIFF are lossless, BMP has 24 bits, GIF 256 dithered colours; quality, 1 to 100, is for JPEG. A
/// picture that already is one strip in the format asked for is handed out as it stands; strips of JPEG or
/// PNG become one file of theirs without a loss, JPEG in the quality that they have.
///
/// Errors: those of checkFits(), Format when a strip cannot be decoded, and Io when device does not take all;
/// it may hold a part of the file then. May be called on any thread, and writes from others.
Result<void> encodeImage(const PagePicture& picture, ImageFormat format, int quality, QIODevice& device);

/// Pixels of a thumbnail's side at most: every format can hold that.
constexpr int kLongestThumbnailSide = 16384;

/// A thumbnail of exactly size: the picture scaled to cover it, cropped from the top and the middle. Errors
/// as above, and Usage for a size with a side of 0 or less or of more than kLongestThumbnailSide.
Result<void> encodeThumbnail(const PagePicture& picture, ImageFormat format, int quality, QSize size,
                             QIODevice& device);

} // namespace vistrel
