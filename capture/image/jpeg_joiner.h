#pragma once

#include "platform/result.h"

#include <QByteArray>
#include <QList>

namespace vistrel
{

/// One baseline JPEG file that shows strips, each a JPEG file, stacked from top to bottom, at most 65,535
/// rows in all. No pixel is decoded: only the codes of the coefficients are exchanged for such that serve all
/// strips, so that nothing is lost. Profile and comments are those of the first strip. It takes up to three
/// times the memory of the strips.
///
/// Error::Kind::Format when a strip is damaged or no baseline file of one scan without restart markers, when
/// strips differ in width, components or quantisation, and when one before the last does not end with a whole
/// unit of 8 or 16 rows. Any thread.
Result<QByteArray> joinJpegStrips(const QList<QByteArray>& strips);

} // namespace vistrel
