#pragma once

#include "platform/drawing/picture.h"

namespace vistrel
{

// The drop button's pictures, 13 x 20 pixels: a small arrow on a blue field.

/// At rest: the arrow points down.
const Picture& picUP();
/// While the list is opened from the button: the arrow points up.
const Picture& picDown();

} // namespace vistrel
