#include "capture/image/blank_check.h"

#include "capture/image/strip_decoder.h"

#include <algorithm>

using vips::VImage;
using vips::VRegion;

namespace vistrel
{

namespace
{

constexpr int kRowsAtOnce = 16;

bool isSmall(const QByteArray& strip, PagePicture::Encoding encoding)
{
    const auto size = encodedSize(strip, encoding);
    return size && strip.size() <= mostBlankBytes(qint64(size->width()) * size->height());
}

QByteArray firstPixel(const VImage& image)
{
    VRegion region = VRegion::new_from_image(image);
    region.prepare(0, 0, 1, 1);
    return {reinterpret_cast<const char*>(region.addr(0, 0)), qsizetype(image.bands())};
}

/// Whether all rows of image are row.
bool isFilledWith(const VImage& image, const QByteArray& row)
{
    VRegion region = VRegion::new_from_image(image);
    for (int top = 0; top < image.height(); top += kRowsAtOnce) {
        const int rows = std::min(kRowsAtOnce, image.height() - top);
        region.prepare(0, top, image.width(), rows);
        for (int y = top; y < top + rows; ++y) {
            const auto* pixels = reinterpret_cast<const char*>(region.addr(0, y));
            if (QByteArrayView(pixels, row.size()) != row) return false;
        }
    }
    return true;
}

} // namespace

bool isBlank(const PagePicture& picture)
{
    const auto& strips = picture.strips();
    const auto small = [&](const QByteArray& strip) { return isSmall(strip, picture.encoding()); };
    if (picture.isNull() || !std::all_of(strips.begin(), strips.end(), small)) return false;
    prepareLibrary();
    try {
        const QByteArray pixel = firstPixel(decodeStrip(strips.first(), picture.encoding()));
        const QByteArray row = pixel.repeated(picture.size().width());
        return std::all_of(strips.begin(), strips.end(), [&](const QByteArray& strip) {
            return isFilledWith(decodeStrip(strip, picture.encoding()), row);
        });
    } catch (const vips::VError&) {
        return false; // A damaged strip is the encoder's to complain about.
    }
}

} // namespace vistrel
