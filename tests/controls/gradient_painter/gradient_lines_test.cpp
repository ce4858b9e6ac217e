#include "controls/gradient_painter/gradient_lines.h"

#include "platform/runtime_error.h"
#include "tests/support/printers.h"

#include <gtest/gtest.h>

#include <limits>

namespace vistrel
{

namespace
{

using Values = std::vector<quint32>;

Values blend(quint32 start, quint32 end, qint32 steps)
{
    std::vector<Color> colors;
    const qint32 count = blendColors({start}, {end}, steps, colors);
    EXPECT_EQ(count, static_cast<qint32>(colors.size()));
    Values values;
    for (const Color color : colors)
        values.push_back(color.value);
    return values;
}

} // namespace

TEST(BlendColors, advancesEachChannelByAStepAndEndsInTheLastColour)
{
    EXPECT_EQ(blend(0, 0x0000FF, 4), (Values{0x000000, 0x000040, 0x000080, 0x0000FF}));
    EXPECT_EQ(blend(0x00FF00, 0x0000FF, 3), (Values{0x00FF00, 0x00AA55, 0x0000FF}));
    EXPECT_EQ(blend(0x800000, 0x000000, 5).at(2), 0x4D0000U);
    EXPECT_EQ(blend(0, 0x05, 10), (Values{0, 0, 1, 2, 2, 2, 3, 4, 4, 5})); // Ties to even.
    EXPECT_EQ(blend(0x80000019, 0xFF000019, 3), (Values{0x80000019, 0x19, 0xFF000019}));
    for (const qint32 steps : {2, 1, 0, -7})
        EXPECT_EQ(blend(0x112233, 0x445566, steps), (Values{0x112233, 0x445566}));
}

TEST(SweepEntries, sweepsLoseNoLineAndEndBeyondTheTarget)
{
    EXPECT_EQ(sweepEntries(100, 50, 0).size(), 204U);
    const std::vector<QPoint> entries = sweepEntries(1920, 1080, 315);
    ASSERT_GT(entries.size(), 5000U);
    for (std::size_t entry = 2; entry < entries.size(); ++entry)
        ASSERT_EQ(entries[entry] - entries[entry - 2], QPoint(1, 0)) << entry;
    EXPECT_GT(std::min(entries.back().x(), entries[entries.size() - 2].x()), 1920);
    EXPECT_LE(std::min(entries[entries.size() - 3].x(), entries[entries.size() - 4].x()), 1920);
    EXPECT_THROW(sweepEntries(10, 10, std::numeric_limits<float>::quiet_NaN()), RuntimeError);
}

} // namespace vistrel
