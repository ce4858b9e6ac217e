#pragma once

#include <QtGlobal>

#include <atomic>
#include <thread>

namespace vistrel
{

/// The most memory that a process and all its descendants took together since the start of the watch: the sum
/// of their proportional set sizes, looked at a hundred times a second in a thread of its own.
class TreeMemory
{
public:
    explicit TreeMemory(qint64 processId);
    TreeMemory(const TreeMemory&) = delete;
    TreeMemory& operator=(const TreeMemory&) = delete;
    ~TreeMemory();

    [[nodiscard]] qint64 peakBytes() const { return m_peakBytes; }

private:
    void watch(qint64 processId);

    std::atomic<qint64> m_peakBytes = 0;
    std::atomic<bool> m_ended = false;
    std::thread m_thread; // Last: it uses the members above.
};

/// Forgets this process's peak so far.
void resetOwnPeak();
/// The most resident memory of this process since then, bytes.
[[nodiscard]] qint64 ownPeakBytes();

} // namespace vistrel
