#pragma once

#include "capture/image/picture_sink.h"

#include <QSize>

namespace vistrel
{

/// Writes image as a BMP file: 24 bits a pixel, uncompressed, rows from the bottom upwards (BITMAPFILEHEADER
/// and BITMAPINFOHEADER, the form that every reader knows). As it is decoded from the top, the file is filled
/// from its end. Throws vips::VError.
void writeBitmap(const vips::VImage& image, PictureSink& sink);

/// Length of such a file for a picture of size.
[[nodiscard]] qint64 bitmapFileBytes(QSize size);

} // namespace vistrel
