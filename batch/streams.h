#pragma once

#include <istream>
#include <ostream>

namespace vistrel
{

/// Where the program reads from and talks to; tests put texts here. All text is UTF-8.
struct Streams {
    std::istream& in;
    std::ostream& out; ///< Results, one line for every entry.
    std::ostream& err; ///< What went wrong, and the progress line.
    /// A person watches err: it gets a progress line, and a line for each failure.
    bool terminal = false;
    bool outTerminal = false;             ///< And out: the results give way to what err gets.
    int (*columns)() = [] { return 80; }; ///< The width of err's terminal now.
};

} // namespace vistrel
