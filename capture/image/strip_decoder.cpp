#include "capture/image/strip_decoder.h"

#include <vector>

using vips::VImage;

namespace vistrel
{

// The library's operation cache would only keep pictures alive that nobody asks for again.
void prepareLibrary()
{
    [[maybe_unused]] static const bool ready = [] {
        if (VIPS_INIT("vistrel") != 0) qFatal("libvips cannot be started");
        vips_cache_set_max(0);
        return true;
    }();
}

VImage decodeStrip(const QByteArray& strip, PagePicture::Encoding encoding)
{
    const auto options = VImage::option()->set("access", VIPS_ACCESS_SEQUENTIAL);
    VipsBlob* blob = vips_blob_new(nullptr, strip.constData(), size_t(strip.size()));
    VImage image = encoding == PagePicture::Encoding::Png ? VImage::pngload_buffer(blob, options)
                                                          : VImage::jpegload_buffer(blob, options);
    vips_area_unref(VIPS_AREA(blob));
    if (!image.has_alpha()) return image;
    return image.flatten(VImage::option()->set("background", std::vector<double>{255, 255, 255}));
}

} // namespace vistrel
