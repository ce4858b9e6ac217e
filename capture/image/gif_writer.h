#pragma once

#include "platform/result.h"

#include <QByteArray>

namespace vistrel
{

/// A GIF file of one frame made of a PNG file with a palette of at most 256 colours. It has no limit below
/// the format's own 65,535 px a side. Error::Kind::Format when png is none such.
Result<QByteArray> gifOfPalettePng(const QByteArray& png);

} // namespace vistrel
