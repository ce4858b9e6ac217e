#include "batch/automatic_jobs.h"

#include <gtest/gtest.h>

namespace vistrel
{

namespace
{

constexpr qint64 kPlenty = 64LL * 1024 * 1024 * 1024;

} // namespace

TEST(AutomaticJobs, GrowWhileProcessorsAreIdleAndMemoryLasts)
{
    int jobs = AutomaticJobs::first();
    EXPECT_GE(jobs, 1);
    for (int i = 0; i < 100; ++i)
        jobs += AutomaticJobs::growth(jobs, 0.5, kPlenty);
    EXPECT_EQ(jobs, 32);

    EXPECT_EQ(AutomaticJobs::growth(4, 0.05, kPlenty), 0);
    EXPECT_EQ(AutomaticJobs::growth(4, 0.9, kPlenty / 1000), 0);
    EXPECT_EQ(AutomaticJobs::growth(1, 0.9, kPlenty), 1);
}

TEST(IdleMeter, SeesAProcessorThatIsBusy)
{
    IdleMeter meter;
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(300);
    while (std::chrono::steady_clock::now() < end) {
    }
    const double share = meter.share();
    EXPECT_GE(share, 0.0);
    EXPECT_LT(share, 1.0);
}

} // namespace vistrel
