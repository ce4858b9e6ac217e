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
///
/// kept is what the journal of an earlier run holds, for a command that resumes it: an option that is not in
/// arguments has its value from there, and one that is must say the same. Plan::options gives what a journal
/// has to keep.
[[nodiscard]] std::variant<Plan, Answer> parseCommandLine(const QStringList& arguments,
                                                          const OptionValues& kept = {});

} // namespace vistrel
