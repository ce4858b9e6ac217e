#pragma once

#include "capture/protocol/task.h"

#include <QEventLoop>

#include <optional>

namespace vistrel::test
{

/// Turns the event loop until task has finished; its result.
template<typename T>
T await(Task<T> task)
{
    std::optional<T> result;
    QEventLoop loop;
    const auto flow = [&]() -> Task<> {
        result = co_await task;
        loop.quit();
    };
    const Task<> finished = flow();
    if (!result) loop.exec();
    return *std::move(result);
}

} // namespace vistrel::test
