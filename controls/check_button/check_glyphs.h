#pragma once

#include "platform/drawing/picture.h"

namespace vistrel
{

/// What the glyph of a check button expresses apart from being checked.
enum class CheckLook { Normal, Hover, Pressed, Disabled };

/// The BtnType of the square glyphs; any other selects the round ones.
inline constexpr qint32 squareBtnType = 2;

/// The glyph of a check button: square ones are 11 x 11 pixels, round ones 10 x 10. Where a glyph is
/// transparent the button's background shows.
const Picture& checkGlyph(qint32 BtnType, CheckLook look, bool checked);

} // namespace vistrel
