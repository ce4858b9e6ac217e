#pragma once

class QObject;

namespace vistrel
{

/// A window that dialogs belong to. Code without windows only passes it on; it may be null (no owner).
using WindowHandle = QObject*;

} // namespace vistrel
