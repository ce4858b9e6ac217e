#pragma once

#include "platform/widgets/control_widget.h"

namespace vistrel
{

// Poses for the tables. The mouse ones act on the widget in the middle of the control.

void hover(ControlWidget& control);
void press(ControlWidget& control);
void focus(ControlWidget& control);
void readRightToLeft(ControlWidget& control);
/// Disabled by its form; the control's own flag stays.
void disableByForm(ControlWidget& control);

} // namespace vistrel
