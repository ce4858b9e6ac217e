#pragma once

namespace vistrel
{

/// Makes assistive tools see every FlatCombo as a combo box with its selected item as value, its list as
/// child, and the name that the form gave the control around it. Calls after the first do nothing.
void installComboAccessibility();

} // namespace vistrel
