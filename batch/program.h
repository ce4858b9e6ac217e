#pragma once

#include "batch/exit_code.h"
#include "batch/streams.h"

#include <QStringList>

namespace vistrel
{

/// vistrel-batch as a whole, without the process around it: reads the arguments (the program's own name left
/// out), runs the event loop of the application object until the run has ended, and tells how it went. While
/// it runs, SIGINT, SIGTERM and SIGHUP end the run instead of the process; a second one, or a run that has
/// not ended after a few seconds, ends the process.
[[nodiscard]] ExitCode runProgram(const QStringList& arguments, Streams& streams);

} // namespace vistrel
