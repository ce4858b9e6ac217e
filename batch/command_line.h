#pragma once

#include "batch/exit_code.h"
#include "batch/plan.h"

#include <variant>

namespace vistrel
{

/// The command asks for nothing but words: the help, the version, or what is wrong with it.
struct Answer {
    ExitCode exitCode;
    QString text; ///< With its final line break.
};

/// Reads the arguments, without the program's own name. Settings named by --config are read here; lists and
/// folders are not touched.
[[nodiscard]] std::variant<Plan, Answer> parseCommandLine(const QStringList& arguments);

} // namespace vistrel
