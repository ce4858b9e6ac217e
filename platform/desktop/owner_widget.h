#pragma once

#include "platform/window_handle.h"

#include <QWidget>

namespace vistrel
{

/// The window that owner stands for; null for none.
inline QWidget* ownerWidget(WindowHandle owner) { return qobject_cast<QWidget*>(owner); }

} // namespace vistrel
