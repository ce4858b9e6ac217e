#pragma once

#include <QWidget>

namespace vistrel
{

/// Lets the user move window with the pointer, from a press of any mouse button until its release. It is the
/// system's own move wherever that ends with the button that started it.
void startWindowMove(QWidget& window);

} // namespace vistrel
