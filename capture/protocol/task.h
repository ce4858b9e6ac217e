#pragma once

#include <QCoroTask>

namespace vistrel
{

/// A flow of several steps. It starts at once and runs to its end even when the Task is dropped, so
/// parameters go by value, or by a reference to something that outlives the flow.
template<typename T = void>
using Task = QCoro::Task<T>;

} // namespace vistrel
