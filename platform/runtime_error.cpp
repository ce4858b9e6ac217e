#include "platform/runtime_error.h"

namespace vistrel
{

namespace
{

const char* description(RuntimeError::Number number)
{
    switch (number) {
    case RuntimeError::Number::InvalidProcedureCall: return "Invalid procedure call or argument";
    case RuntimeError::Number::Overflow: return "Overflow";
    case RuntimeError::Number::TypeMismatch: return "Type mismatch";
    case RuntimeError::Number::BadFileName: return "Bad file name or number";
    case RuntimeError::Number::PermissionDenied: return "Path/File access error";
    case RuntimeError::Number::ObjectNotSet: return "Object variable not set";
    case RuntimeError::Number::InvalidPropertyValue: return "Invalid property value";
    case RuntimeError::Number::Automation: return "Automation error";
    }
    return "Unknown error";
}

} // namespace

RuntimeError::RuntimeError(Number number) : std::runtime_error(description(number)), m_number(number) {}

} // namespace vistrel
