#pragma once

#include <QtGlobal>

namespace vistrel
{

/// Width of the busy bar after one tick of tmrShow, from its present width and that of the frame around it
/// (all in twips): 4 more, and back to 4 as soon as it fills the frame's inside, which is 2 less than the
/// frame.
[[nodiscard]] qint32 nextBusyBarWidth(qint32 width, qint32 frameWidth);

} // namespace vistrel
