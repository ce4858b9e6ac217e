#pragma once

#include <QtGlobal>

#include <functional>

#include <vips/vips8>

namespace vistrel
{

/// Some rows of a picture of three bands, one below the other; red, green and blue for each pixel.
struct Rows {
    const uchar* first;
    qsizetype stride; ///< Bytes from row to row.
    int top;          ///< Which row of the picture the first one is.
    int count;

    [[nodiscard]] const uchar* row(int index) const { return first + index * stride; }
};

/// Decodes image on threads of the library while take, on another one, is given its rows from top to bottom,
/// a few dozen at a time. Ends early when take returns false. Throws vips::VError then, and when a strip is
/// damaged.
void readRows(const vips::VImage& image, const std::function<bool(const Rows& rows)>& take);

} // namespace vistrel
