#include "KOVISIPLColor/kernel/PowerAccuracy.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>

// The table power against mathematics. Every stride-th base, or every base with KOVIS_POWER_STRIDE=1, which takes minutes.

namespace kovis::test
{
namespace
{
std::uint32_t strideOf()
{
    const char* const text = std::getenv("KOVIS_POWER_STRIDE");
    const unsigned long stride = text == nullptr ? 0 : std::strtoul(text, nullptr, 10);
    return stride == 0 ? 4001U : static_cast<std::uint32_t>(stride);
}
} // namespace

TEST(PowerAccuracy, DistanceToTheCorrectlyRoundedPower)
{
    std::cout << "| Exponent and bases | Form | 0 units | 1 | 2 | 3 | more | Worst | First base beyond 1 |\n"
                 "|---|---|---|---|---|---|---|---|---|\n";
    for (const PowerRange& range : powerRanges())
    {
        const std::vector<PowerHistogram> histograms = measurePower(range, strideOf());
        ASSERT_FALSE(histograms.empty());
        for (const PowerHistogram& histogram : histograms)
        {
            std::cout << toTableRow(range, histogram) << std::endl;
            EXPECT_LE(histogram.m_worst, range.m_limit);
            EXPECT_GT(histogram.m_counts[0] + histogram.m_counts[1], 0U);
        }
        // The floor step alone sets the forms without fusing apart, and not on these bases.
        for (const PowerHistogram& histogram : histograms)
        {
            if (!histogram.m_power->m_form->m_bFused)
            {
                EXPECT_EQ(histogram.m_counts, histograms.front().m_counts);
            }
        }
    }
}
} // namespace kovis::test
