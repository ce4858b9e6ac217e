#pragma once

#include <QtGlobal>

namespace vistrel
{

/// Memory that new work can have without others being pushed out, in bytes; limits set for this process's
/// group count. A very large number when it is unknown.
[[nodiscard]] qint64 availableMemoryBytes();

} // namespace vistrel
