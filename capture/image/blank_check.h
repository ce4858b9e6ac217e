#pragma once

#include "capture/image/page_picture.h"

namespace vistrel
{

/// Whether picture shows one colour and nothing else. It costs next to nothing for a picture that shows
/// something: only strips of at most mostBlankBytes() are decoded at all, and no further than to the first
/// row that differs; a blank one is decoded once, strip by strip. Any thread.
[[nodiscard]] bool isBlank(const PagePicture& picture);

/// What a strip of one colour takes at most, in bytes. Of one colour, the browser's PNG has been seen to take
/// 1/56 byte a pixel, its JPEG 1/151.
[[nodiscard]] constexpr qint64 mostBlankBytes(qint64 pixels) { return 1000 + pixels / 50; }

} // namespace vistrel
