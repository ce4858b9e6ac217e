#pragma once

#include <QByteArray>
#include <QList>

#include <optional>

namespace vistrel
{

/// One PNG file that shows strips, each a PNG file, stacked from top to bottom. No pixel is encoded anew: the
/// strips' compressed blocks are put one after the other, but for the first few rows of each. Chunks before
/// the pixels are those of the first strip. It takes up to three times the memory of the strips.
///
/// Nothing when strips are damaged, interlaced or of different kinds, or when their blocks do not fit
/// together: where one holds its bytes as they are, or where a strip's first row is computed from the row
/// above it in more than one way. Any thread.
std::optional<QByteArray> joinPngStrips(const QList<QByteArray>& strips);

} // namespace vistrel
