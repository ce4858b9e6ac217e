#pragma once

#include "capture/protocol/completion.h"
#include "capture/protocol/task.h"

#include <QList>

namespace vistrel
{

/// Work that is done once for all who ask for it while it is under way. Must outlive those who wait for it.
template<typename T>
class SharedWork
{
public:
    [[nodiscard]] bool isUnderWay() const { return !m_waiters.isEmpty(); }

    /// Settled when the work is done: what is under way, or else what start(), a Task<Result<T>>, begins.
    template<typename Start>
    Completion<T> join(const Start& start)
    {
        const bool first = m_waiters.isEmpty();
        const Completion<T> mine = m_waiters.emplaceBack();
        if (first) finish(start());
        return mine;
    }

private:
    Task<> finish(Task<Result<T>> work)
    {
        const Result<T> result = co_await work;
        const auto waiters = std::exchange(m_waiters, {});
        for (const Completion<T>& waiter : waiters)
            waiter.settle(result);
    }

    QList<Completion<T>> m_waiters;
};

} // namespace vistrel
