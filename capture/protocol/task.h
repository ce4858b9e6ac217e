#pragma once

#include <QCoroTask>

namespace vistrel
{

/// A flow of several steps. It starts at once and runs to its end even when the Task is dropped, so
/// parameters go by value, or by a reference to something that outlives the flow.
///
/// Traps: co_return moves from what it names, members included (QCoro 0.8), so return a copy of those; no
/// braced list and no lambda that copies anything with a destructor may stand inside a co_await expression,
/// and no co_await inside a conditional one (GCC 12).
template<typename T = void>
using Task = QCoro::Task<T>;

} // namespace vistrel
