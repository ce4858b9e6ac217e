#include "platform/rounding.h"

#include <gtest/gtest.h>

using vistrel::roundedTo;

TEST(Rounding, TakesHalvesToTheEvenNeighbourAndRefusesWhatDoesNotFit)
{
    EXPECT_EQ(roundedTo<qint32>(0.5), 0);
    EXPECT_EQ(roundedTo<qint32>(1.5), 2);
    EXPECT_EQ(roundedTo<qint32>(2.5), 2);
    EXPECT_EQ(roundedTo<qint32>(-2.5), -2);
    EXPECT_EQ(roundedTo<qint32>(2147483647.4), 2147483647);
    EXPECT_EQ(roundedTo<qint32>(2147483647.5), std::nullopt);
    EXPECT_EQ(roundedTo<qint16>(-32768.5), -32768);
    EXPECT_EQ(roundedTo<qint16>(32768), std::nullopt);
    EXPECT_EQ(roundedTo<qint32>(std::nan("")), std::nullopt);
    EXPECT_EQ(roundedTo<qint32>(-std::numeric_limits<double>::infinity()), std::nullopt);
}
