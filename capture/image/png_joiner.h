#pragma once

#include <QByteArray>
#include <QList>

#include <functional>

namespace vistrel
{

/// Writes one PNG file that shows strips, each a PNG file, stacked from top to bottom; write takes its bytes
/// piece by piece. No pixel is encoded anew: the strips' compressed blocks are put one after the other, but
/// for the first few rows of each. Chunks before the pixels are those of the first strip. Beside the strips,
/// it takes the memory of the largest.
///
/// False, and nothing is written, when strips are damaged, interlaced or of different kinds, or when their
/// blocks do not fit together: where one holds its bytes as they are, or where a strip's first row is
/// computed from the row above it in more than one way. Any thread.
bool joinPngStrips(const QList<QByteArray>& strips, const std::function<void(const QByteArray&)>& write);

} // namespace vistrel
