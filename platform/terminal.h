#pragma once

namespace vistrel
{

/// True when this process's error stream is a terminal that a person looks at and that can rewrite a line.
[[nodiscard]] bool errorStreamIsTerminal();

/// Width of that terminal in characters, which users change; 80 when it is unknown.
[[nodiscard]] int terminalColumns();

} // namespace vistrel
