#pragma once

#include "platform/widgets/control_widget.h"

namespace vistrel
{

// Poses for the tables. hover() and press() act on the widget in the middle of the control.

void hover(ControlWidget& control);
void press(ControlWidget& control);
void focus(ControlWidget& control);
void readRightToLeft(ControlWidget& control);
/// Disabled by its form; the control's own flag stays.
void disableByForm(ControlWidget& control);

/// Presses the left button at a position of the control.
void pressAt(ControlWidget& control, QPoint at);

} // namespace vistrel
