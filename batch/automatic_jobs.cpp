#include "batch/automatic_jobs.h"

#include <QThread>

#include <algorithm>

namespace vistrel
{

namespace
{

constexpr qint64 kMemoryPerPage = 400LL * 1024 * 1024;
constexpr int kPagesPerCore = 3;
constexpr int kMostToBegin = 16;
constexpr int kMost = 32;
/// A smaller idle share is what remains between the steps of pages.
constexpr double kIdle = 0.15;
/// The part of the present jobs that is added at once.
constexpr int kGrowthPart = 4;

int byMemory(qint64 memory) { return int(std::min<qint64>(memory / kMemoryPerPage, kMost)); }

} // namespace

int AutomaticJobs::first()
{
    const int byCores = std::min(kPagesPerCore * QThread::idealThreadCount(), kMostToBegin);
    return std::max(1, std::min(byCores, byMemory(availableMemoryBytes())));
}

int AutomaticJobs::growth(int jobs) { return growth(jobs, m_meter.share(), availableMemoryBytes()); }

int AutomaticJobs::growth(int jobs, double idle, qint64 memory)
{
    if (idle < kIdle) return 0;
    const int more = std::max(1, jobs / kGrowthPart);
    return std::max(0, std::min({more, kMost - jobs, byMemory(memory)}));
}

} // namespace vistrel
