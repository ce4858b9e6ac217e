#pragma once

#include "platform/machine.h"

#include <chrono>

namespace vistrel
{

/// How many pages at a time suit this machine and its list. Pages of this machine keep its processors busy;
/// pages from the network mostly wait for it, and more of them can be under way. So a run begins with what
/// cores and memory suggest and grows for as long as processors are idle.
class AutomaticJobs
{
public:
    /// growth() is to be asked this often.
    static constexpr std::chrono::milliseconds kInterval{500};

    /// To begin with: three for each core, as far as memory allows; at least 1.
    [[nodiscard]] static int first();

    /// How many more than the present jobs (1 or more) there should be.
    [[nodiscard]] int growth(int jobs);
    /// The same by the processors' idle share, 0 to 1, and the memory available, in bytes.
    [[nodiscard]] static int growth(int jobs, double idle, qint64 memory);

private:
    IdleMeter m_meter;
};

} // namespace vistrel
