#pragma once

#include <stdexcept>

namespace vistrel
{

/// A run-time error with the system's number. It travels as an exception from a failing step of the wizard's
/// run, or from a control's property setter, to the nearest handler; nothing else throws.
class RuntimeError : public std::runtime_error
{
public:
    enum class Number {
        InvalidProcedureCall = 5,
        Overflow = 6,
        TypeMismatch = 13,
        BadFileName = 52,
        PermissionDenied = 75,
        ObjectNotSet = 91,
        InvalidPropertyValue = 380,
        Automation = 440, ///< A call on the capture component failed.
    };

    explicit RuntimeError(Number number);

    [[nodiscard]] Number number() const { return m_number; }

private:
    Number m_number;
};

} // namespace vistrel
