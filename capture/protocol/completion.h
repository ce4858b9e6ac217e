#pragma once

#include "platform/result.h"

#include <coroutine>
#include <memory>
#include <utility>

namespace vistrel
{

/// A result that comes later: one side settles it, one coroutine awaits it. Copies share it. One thread.
///
///     auto reply = co_await session->call(...);   // Result<Reply>
///
/// Whoever hands a Completion out settles it sooner or later, on every path; an awaiting coroutine never
/// hangs.
template<typename T>
class [[nodiscard]] Completion
{
public:
    Completion() : m_state(std::make_shared<State>()) {}

    /// Settles with result and resumes the waiting coroutine before it returns. Later calls do nothing.
    void settle(Result<T> result) const
    {
        if (m_state->result) return;
        const auto keep = m_state; // The resumed coroutine may drop the last other copy, this one included.
        keep->result.emplace(std::move(result));
        if (keep->waiter) std::exchange(keep->waiter, nullptr).resume();
    }

    [[nodiscard]] bool isSettled() const { return m_state->result.has_value(); }

    [[nodiscard]] bool await_ready() const noexcept { return isSettled(); }
    void await_suspend(std::coroutine_handle<> waiter) const noexcept { m_state->waiter = waiter; }
    Result<T> await_resume() const { return std::move(*m_state->result); }

private:
    struct State {
        std::optional<Result<T>> result;
        std::coroutine_handle<> waiter;
    };
    std::shared_ptr<State> m_state;
};

} // namespace vistrel
