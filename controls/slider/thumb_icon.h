#pragma once

#include "platform/drawing/picture.h"

namespace vistrel
{

/// The thumb of a slider that was given none: 16 x 16 pixels, opaque, like a small raised button.
const Picture& thumbIcon();

} // namespace vistrel
