#pragma once

namespace vistrel
{

/// What vistrel-batch tells its caller when it ends.
enum class ExitCode {
    Converted = 0,  ///< Every entry was converted, every report written.
    SomeFailed = 1, ///< At least one entry was not, or a report could not be written.
    Usage = 2,      ///< The command cannot be carried out as it was given; nothing was converted.
    NoBrowser = 3,  ///< The browser could not be started.
    // 128 and the signal's number, as shells have it.
    HungUp = 129,
    Interrupted = 130,
    Terminated = 143,
};

} // namespace vistrel
