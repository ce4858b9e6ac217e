#pragma once

#include "platform/drawing/color.h"
#include "platform/drawing/picture.h"

#include <QMap>

#include <initializer_list>

namespace vistrel
{

/// A picture written down pixel by pixel: one text per row, all of the same length, one character per pixel.
/// A character without a colour is transparent.
Picture pixelPicture(std::initializer_list<QStringView> rows, const QMap<char16_t, Color>& colors);

} // namespace vistrel
