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
    /// A person watches err: the results give way to a progress line there, and only failures get a line.
    bool terminal = false;
    int (*columns)() = [] { return 80; }; ///< The width of that terminal now.
};

} // namespace vistrel
