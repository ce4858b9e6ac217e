#pragma once

#include <QtGlobal>

namespace vistrel
{

/// Memory that new work can have without others being pushed out, in bytes; limits set for this process's
/// group count. A very large number when it is unknown.
[[nodiscard]] qint64 availableMemoryBytes();

/// How much of the processors' time is free: unused, or used by programs of lower priority.
class IdleMeter
{
public:
    /// The free share, 0 to 1, of the time since the last call, or since this object was made; 0 when it is
    /// unknown. Calls less than a few tenths of a second apart measure nothing but the clock's ticks.
    [[nodiscard]] double share();

private:
    struct Ticks {
        qint64 idle = 0;
        qint64 all = 0;
    };
    [[nodiscard]] static Ticks ticks();
    Ticks m_last = ticks();
};

} // namespace vistrel
