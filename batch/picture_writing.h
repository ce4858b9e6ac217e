#pragma once

#include "batch/entry_conversion.h"

#include <QElapsedTimer>

namespace vistrel
{

/// All that the writing of one entry's files needs, for a thread of its own.
struct WritingJob {
    ConversionTools tools;
    PendingEntry entry;
    PageShot shot;
    qint64 started;      ///< Of the attempt, in ms since 1970.
    QElapsedTimer clock; ///< Running since then.
};

/// Encodes the picture in every format of the plan, makes the thumbnail, writes all files and tells the
/// journal. Either all files of the entry are there afterwards, or none. Blocks; any thread.
[[nodiscard]] Attempt writePictures(WritingJob job);

} // namespace vistrel
