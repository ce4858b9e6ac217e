#pragma once

#include "platform/runtime_error.h"
#include "platform/widgets/control_widget.h"

#include <gtest/gtest.h>

#include <functional>

namespace vistrel
{

inline PropertyBag saved(const ControlWidget& control)
{
    PropertyBag bag;
    control.WriteProperties(bag);
    return bag;
}

/// The keys of what control saves, in their order, separated by spaces.
inline QString savedKeys(const ControlWidget& control)
{
    QStringList keys;
    const PropertyBag bag = saved(control);
    for (const auto& entry : bag.entries())
        keys += entry.key;
    return keys.join(u' ');
}

/// The error that call ends with; it must end with one.
inline RuntimeError::Number errorOf(const std::function<void()>& call)
{
    try {
        call();
    } catch (const RuntimeError& error) {
        return error.number();
    }
    ADD_FAILURE() << "no error";
    return {};
}

} // namespace vistrel
