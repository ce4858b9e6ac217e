#pragma once

#include "platform/drawing/picture.h"

#include <QCursor>

namespace vistrel
{

/// The pointer for a MousePointer property: 0 the control's default, 1 arrow, 2 cross, 3 I-beam, 4 icon (an
/// arrow), 5 and 15 size all, 6 to 9 size NE-SW, N-S, NW-SE, W-E, 10 up arrow, 11 hourglass, 12 no drop, 13
/// arrow and hourglass, 14 arrow and question mark, 99 custom: icon, its hot spot in the middle, or the
/// default without one. Any other number is RuntimeError::Number::InvalidPropertyValue.
QCursor pointerShape(qint16 MousePointer, const Picture& icon,
                     Qt::CursorShape defaultShape = Qt::ArrowCursor);

} // namespace vistrel
