#pragma once

#include "platform/widgets/control_widget.h"

namespace vistrel
{

/// The properties that the form itself gives every control, next to those that the control saves. In a
/// control's design data they come first:
///
///     Container = "picMain(0)"      the picture box or frame that holds it; the form without one
///     Left, Top, Width, Height      twips, within the container
///     Visible = false               true without it
///     HostEnabled = false           the form's own flag, apart from a control's "Enabled"; true without it
///     Tag = "..."                   any text, kept for the program
///     AccessibleName = "..."        what assistive tools call it, where its own name would not do

/// Applies all but the container.
void readPlacement(ControlWidget& control, const PropertyBag& bag);
/// Adds what readPlacement() and the container need to give the same again.
void writePlacement(const ControlWidget& control, PropertyBag& bag);

[[nodiscard]] QString tagOf(const ControlWidget& control);
void setTag(ControlWidget& control, const QString& tag);

} // namespace vistrel
