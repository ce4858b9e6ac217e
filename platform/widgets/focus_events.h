#pragma once

namespace vistrel
{

/// Makes every ControlWidget raise GotFocus(), Validate() and LostFocus() when the focus moves within its
/// window: first Validate() and LostFocus() of the control that had it, then GotFocus() of the one that has
/// it. A focus on a child counts as the control's; a window that merely becomes inactive, another window and
/// menus raise nothing. Calls after the first do nothing; needs the application object.
void followFocus();

} // namespace vistrel
