#pragma once

#include "capture/image/picture_sink.h"

#include <functional>

namespace vistrel
{

/// Writes a GIF file of one frame with a palette made for it, dithered where the palette lacks a colour. open
/// gives the picture, of at most 65,535 px a side, to be read from the top; it is asked twice. Error::Kind::
/// Format when no file can be made; throws vips::VError.
Result<void> writeGif(const std::function<vips::VImage()>& open, PictureSink& sink);

} // namespace vistrel
