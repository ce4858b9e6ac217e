#include "app/util/lenient_number.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace vistrel;

TEST(LenientNumber, ReadsAsFarAsTheTextIsANumber)
{
    const std::pair<QString, double> cases[] = {
        {u"12abc"_s, 12}, {u"4x"_s, 4},        {u"abc"_s, 0},  {QString(), 0},   {u" 7"_s, 7},
        {u"1 2"_s, 12},   {u"2.50"_s, 2.5},    {u".5"_s, 0.5}, {u"5."_s, 5},     {u"1.2.3"_s, 1.2},
        {u"-1"_s, -1},    {u"- 1.5x"_s, -1.5}, {u"+3"_s, 3},   {u"--3"_s, 0},    {u"."_s, 0},
        {u"1,5"_s, 1},    {u"1e2"_s, 100},     {u"1e"_s, 1},   {u"2e+x"_s, 2},   {u"inf"_s, 0},
        {u"0x10"_s, 0},   {u"٣"_s, 0},         {u"\t8"_s, 8},  {u"1e-400"_s, 0},
    };
    for (const auto& [text, number] : cases)
        EXPECT_EQ(leadingNumber(text), number) << text.toStdString();
    EXPECT_GT(leadingNumber(u"1e999"_s), 1e308);
}

TEST(LenientNumber, IsWrittenBackInItsShortestDecimalForm)
{
    const std::pair<QString, QString> cases[] = {
        {u"12abc"_s, u"12"_s}, {u"2.50"_s, u"2.5"_s}, {u"abc"_s, u"0"_s},         {u"-0"_s, u"0"_s},
        {u"007"_s, u"7"_s},    {u"0.1"_s, u"0.1"_s},  {u"100000"_s, u"100000"_s}, {u"1e-7"_s, u"0.0000001"_s},
    };
    for (const auto& [typed, shown] : cases)
        EXPECT_EQ(numberText(leadingNumber(typed)), shown);
}
