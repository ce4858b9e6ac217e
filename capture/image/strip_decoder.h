#pragma once

#include "capture/image/page_picture.h"

#include <vips/vips8>

namespace vistrel
{

/// Starts the imaging library once per process; called before anything else of it is.
void prepareLibrary();

/// A strip as pixels of three bands, 8 bits each, decoded from top to bottom as it is read. strip must
/// outlive the image. Throws vips::VError, here or while it is read, when the strip is damaged.
vips::VImage decodeStrip(const QByteArray& strip, PagePicture::Encoding encoding);

} // namespace vistrel
