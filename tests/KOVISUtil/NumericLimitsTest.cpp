#include "KOVIS/KOVISUtil/NumericLimits.h"
#include "KOVIS/KOVISUtil/eInstructionSet.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace kovis
{
TEST(NumericLimits, ofThePixelTypes)
{
    EXPECT_EQ(-128, NumericLimits<signed char>::s_min);
    EXPECT_EQ(127, NumericLimits<signed char>::s_max);
    EXPECT_EQ(0, NumericLimits<unsigned char>::s_min);
    EXPECT_EQ(255, NumericLimits<unsigned char>::s_max);
    EXPECT_EQ(-32768, NumericLimits<short>::s_min);
    EXPECT_EQ(32767, NumericLimits<short>::s_max);
    EXPECT_EQ(0, NumericLimits<unsigned short>::s_min);
    EXPECT_EQ(65535, NumericLimits<unsigned short>::s_max);
    EXPECT_EQ(-2147483647 - 1, NumericLimits<int>::s_min);
    EXPECT_EQ(2147483647, NumericLimits<int>::s_max);
    EXPECT_EQ(0u, NumericLimits<unsigned int>::s_min);
    EXPECT_EQ(4294967295u, NumericLimits<unsigned int>::s_max);
}

TEST(NumericLimits, ofFloatBeginAtTheLowestFloat)
{
    EXPECT_EQ(-0x1.fffffep127f, NumericLimits<float>::s_min);
    EXPECT_EQ(0x1.fffffep127f, NumericLimits<float>::s_max);
}

TEST(InstructionSet, numbersAreFixed)
{
    EXPECT_EQ(0, eInstructionSet::eIS_Generic);
    EXPECT_EQ(1, eInstructionSet::eIS_SSE2);
    EXPECT_EQ(5, eInstructionSet::eIS_AVX);
    EXPECT_EQ(6, eInstructionSet::eIS_FMA3);
    EXPECT_EQ(7, eInstructionSet::eIS_AVX2);
    EXPECT_EQ(8, eInstructionSet::eIS_AVX512);
    EXPECT_EQ(eInstructionSet::eIS_AVX2, eInstructionSet(eInstructionSet::eIS_AVX2));
    EXPECT_EQ(eInstructionSet::eIS_Generic, eInstructionSet());
}
} // namespace kovis
