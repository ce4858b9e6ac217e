#pragma once

namespace vistrel
{

/// True when this process's error stream is a terminal that a person looks at and that can rewrite a line.
[[nodiscard]] bool errorStreamIsTerminal();

/// True when this process's standard output is a terminal.
[[nodiscard]] bool outputStreamIsTerminal();

/// Width of the error stream's terminal in characters, which users change; 80 when it is unknown.
[[nodiscard]] int terminalColumns();

} // namespace vistrel
