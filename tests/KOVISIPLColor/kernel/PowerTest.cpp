#include "KOVISIPLColor/kernel/KernelGrid.h"
#include "KOVISIPLColor/kernel/KernelSamples.h"
#include "support/PowerUnderTest.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <ostream>
#include <random>
#include <set>
#include <vector>

// The table power of each vector form against the model and by literal value.

namespace kovis::test
{
void PrintTo(const PowerForm& power, std::ostream* stream)
{
    *stream << power.m_form->m_name;
}

namespace
{
constexpr float g_third = 0.33333334F;
constexpr float g_infinity = std::numeric_limits<float>::infinity();
constexpr float g_nan = std::numeric_limits<float>::quiet_NaN();

/// The exponents of the kernels, and others of every kind: whole, odd, even, broken, negative, with and without a rest of a
/// sixteenth, large, special.
constexpr float g_exponents[] = {g_third, 2.4F,  3.0F,  1.0F,    0.5F,       -0.5F,       2.0F,  -1.0F,
                                 -2.0F,   -3.0F, -2.4F, 0.0625F, 0.01F,      5.3125F,     -7.0F, 100.0F,
                                 -33.3F,  1e3F,  0.0F,  -0.0F,   g_infinity, -g_infinity, g_nan};
} // namespace

class TablePower : public testing::TestWithParam<PowerForm>
{
protected:
    void SetUp() override
    {
        if (!canRun(*GetParam().m_form))
        {
            GTEST_SKIP() << "this processor cannot run " << GetParam().m_form->m_name;
        }
    }

    static std::vector<float> power(const std::vector<float>& bases, float y)
    {
        std::vector<float> padded = bases;
        padded.resize((bases.size() + 31) / 32 * 32, 1.0F);
        std::vector<float> results(padded.size());
        GetParam().m_power(y, padded.size(), padded.data(), results.data());
        results.resize(bases.size());
        return results;
    }
    static float power(float x, float y) { return power(std::vector<float>(32, x), y)[7]; }

    static void expectBits(const std::vector<float>& bases, float y)
    {
        const std::vector<float> results = power(bases, y);
        for (std::size_t i = 0; i < bases.size(); ++i)
        {
            const float expected = modelPower(*GetParam().m_form, bases[i], y);
            ASSERT_TRUE(sameValue(results[i], expected))
                << std::hexfloat << bases[i] << " to " << y << ": " << results[i] << " for " << expected;
        }
    }
};

INSTANTIATE_TEST_SUITE_P(Forms, TablePower, testing::ValuesIn(g_powerForms),
                         [](const testing::TestParamInfo<PowerForm>& place) { return std::string(place.param.m_form->m_name); });

// Each entry of the table and what lies beside it, in every octave.
TEST_P(TablePower, EveryPlaceOfTheSearchGivesTheBitsOfTheModel)
{
    std::vector<float> bases;
    for (int octave = -125; octave <= 128; ++octave)
    {
        for (int i = 0; i <= 16; ++i)
        {
            float mantissa = modelPowerTable(i);
            mantissa = std::nextafterf(std::nextafterf(mantissa, 0.0F), 0.0F);
            for (int step = 0; step < 5; ++step, mantissa = std::nextafterf(mantissa, 2.0F))
            {
                bases.push_back(std::ldexp(mantissa, octave));
            }
        }
    }
    for (float y : g_exponents)
    {
        expectBits(bases, y);
        ASSERT_FALSE(HasFatalFailure());
    }
}

TEST_P(TablePower, MantissasGiveTheBitsOfTheModel)
{
    std::vector<float> bases;
    for (std::uint32_t bits = 0x3F000000U; bits < 0x3F800000U; bits += 101)
    {
        bases.push_back(std::bit_cast<float>(bits));
    }
    for (float y : {g_third, 2.4F, 3.0F})
    {
        expectBits(bases, y);
        ASSERT_FALSE(HasFatalFailure());
    }
}

// The tables as each form reads them, in registers and by rows, against plain reads. Mantissas from A[1] on come as their halves,
// with the last place for the first: half of its A and twice its inverse.
TEST_P(TablePower, TheSearchReadsWhatTheTablesHold)
{
    std::vector<float> mantissas;
    const std::uint32_t first = std::bit_cast<std::uint32_t>(modelPowerTable(1)) - (1U << 23U);
    for (std::uint32_t step = 0; step < (1U << 23U); step += 1009)
    {
        mantissas.push_back(std::bit_cast<float>(first + step));
    }
    mantissas.push_back(std::nextafterf(modelPowerTable(1), 0.0F));
    for (int i = 2; i <= 16; ++i)
    {
        const float entry = modelPowerTable(i);
        mantissas.insert(mantissas.end(), {std::nextafterf(entry, 0.0F), entry, std::nextafterf(entry, 1.0F)});
    }
    mantissas.resize((mantissas.size() + 31) / 32 * 32, 0.5F);
    std::vector<std::vector<float>> planes(4, std::vector<float>(mantissas.size()));
    float* const found[] = {planes[0].data(), planes[1].data(), planes[2].data(), planes[3].data()};
    GetParam().m_search(mantissas.size(), mantissas.data(), found);
    std::set<int> seen;
    for (std::size_t i = 0; i < mantissas.size(); ++i)
    {
        const bool bHalf = mantissas[i] < 0.5F;
        const ModelPowerPlace place = modelPowerPlace(bHalf ? mantissas[i] * 2.0F : mantissas[i]);
        ASSERT_EQ(place.m_i == 0, bHalf);
        const float expected[] = {bHalf ? 0.5F : place.m_a, place.m_b, bHalf ? 2.0F : place.m_aInverse,
                                  bHalf ? 1.0F : static_cast<float>(place.m_i) / 16.0F};
        for (std::size_t plane = 0; plane < 4; ++plane)
        {
            ASSERT_TRUE(sameValue(planes[plane][i], expected[plane]))
                << std::hexfloat << mantissas[i] << ", plane " << plane << ": " << planes[plane][i] << " for " << expected[plane];
        }
        seen.insert(place.m_i);
    }
    EXPECT_EQ(seen, (std::set<int>{0, 2, 4, 6, 8, 10, 12, 14, 16}));
}

// Each whole number of sixteenths from far below the limit of the scale to far above it, and some farther out.
TEST_P(TablePower, TheSplitReadsWhatTheTableHolds)
{
    std::vector<float> sixteenths{-2147483648.0F, -1e9F, -100003.0F, 100003.0F, 1e9F};
    for (int k = -5000; k <= 5000; ++k)
    {
        sixteenths.push_back(static_cast<float>(k));
    }
    sixteenths.resize((sixteenths.size() + 31) / 32 * 32, -0.0F);
    std::vector<float> entries(sixteenths.size());
    std::vector<float> scales(sixteenths.size());
    float* const found[] = {entries.data(), scales.data()};
    GetParam().m_split(sixteenths.size(), sixteenths.data(), found);
    std::set<float> seen;
    for (std::size_t i = 0; i < sixteenths.size(); ++i)
    {
        const ModelPowerSplit split = modelPowerSplit(static_cast<std::int64_t>(sixteenths[i]));
        ASSERT_TRUE(sameValue(entries[i], split.m_entry)) << sixteenths[i] << ": " << entries[i] << " for " << split.m_entry;
        ASSERT_TRUE(sameValue(scales[i], split.m_scale)) << sixteenths[i] << ": " << scales[i] << " for " << split.m_scale;
        seen.insert(split.m_entry);
    }
    // A negative whole number begins with the first entry, another one ends with the last.
    EXPECT_EQ(seen.size(), 17U);
}

// Negative and special ones, denormals, and whatever else is a float.
TEST_P(TablePower, AnyBitsGiveTheBitsOfTheModel)
{
    std::mt19937 random(sampleSeed());
    std::vector<float> bases = awkwardFloats();
    for (int i = 0; i < 20000; ++i)
    {
        bases.push_back(std::bit_cast<float>(static_cast<std::uint32_t>(random())));
    }
    for (float y : g_exponents)
    {
        expectBits(bases, y);
        ASSERT_FALSE(HasFatalFailure());
    }
}

TEST_P(TablePower, ZeroAndOneAreExact)
{
    EXPECT_TRUE(sameValue(power(0.0F, g_third), 0.0F));
    EXPECT_TRUE(sameValue(power(0.0F, 2.4F), 0.0F));
    for (float y : {g_third, 2.4F, 3.0F, -7.3F})
    {
        EXPECT_EQ(power(1.0F, y), 1.0F) << y;
    }
}

TEST_P(TablePower, TheThresholdOfLabHasItsRoot)
{
    const float root = power(0.008856452F, g_third);
    EXPECT_GE(root, std::nextafterf(0.20689656F, 0.0F));
    EXPECT_LE(root, std::nextafterf(0.20689656F, 1.0F));
}

// Two of the three lie one unit below the cubes themselves. The fused polynomials lead to the same floats.
TEST_P(TablePower, TheCubesThatLuvComputes)
{
    EXPECT_EQ(std::bit_cast<std::uint32_t>(power(0.206896558F, 3.0F)), 0x3C111AA7U);
    EXPECT_EQ(std::bit_cast<std::uint32_t>(power(9.66666698F, 3.0F)), 0x4461D2F8U);
    EXPECT_EQ(std::bit_cast<std::uint32_t>(power(0.103448279F, 3.0F)), 0x3A911AA7U);
}

// Whole powers of two have no mantissa to lose, so that these are exact.
TEST_P(TablePower, PowersOfTwoAreExact)
{
    EXPECT_EQ(power(2.0F, 3.0F), 8.0F);
    EXPECT_EQ(power(2.0F, -3.0F), 0.125F);
    EXPECT_EQ(power(4.0F, 0.5F), 2.0F);
    EXPECT_EQ(power(0x1p-60F, 2.0F), 0x1p-120F);
    EXPECT_EQ(power(0x1p42F, 3.0F), 0x1p126F);
}

// The exponent of the scale is held at 127 where 128 is due, from a sixteenth of an octave below 2^127 on, and where 129 is due,
// a sixteenth below 2^128: results there are a half and a quarter of the power.
TEST_P(TablePower, ResultsOfTheLastOctaveAreHalvedAndQuartered)
{
    EXPECT_EQ(power(0x1p127F, 1.0F), 0x1p126F);
    EXPECT_EQ(power(0x1p63F, 2.0F), 0x1p125F + 0x1p125F);
    EXPECT_EQ(power(0x1.8p63F, 2.0F), 0x1.2p126F);
    const auto quotient = [](float x) { return power(x, 1.0F) / x; };
    EXPECT_NEAR(quotient(0.957F * 0x1p127F), 1.0F, 1e-6F);
    EXPECT_NEAR(quotient(0.958F * 0x1p127F), 0.5F, 1e-6F);
    EXPECT_NEAR(quotient(0.957F * 0x1p127F * 2.0F), 0.5F, 1e-6F);
    EXPECT_NEAR(quotient(0.958F * 0x1p127F * 2.0F), 0.25F, 1e-6F);
    // Beyond all floats: wrong, but finite.
    EXPECT_EQ(power(0x1p64F, 2.0F), 0x1p126F);
    EXPECT_EQ(power(0x1p100F, 3.0F), 0x1p126F);
}

// The exponent is held at -126 below.
TEST_P(TablePower, ResultsBelowTheNormalFloatsAreWrongButNormal)
{
    EXPECT_EQ(power(0x1p-63F, 2.0F), 0x1p-126F);
    EXPECT_EQ(power(0x1p-64F, 2.0F), 0x1p-126F);
    EXPECT_EQ(power(0x1p-100F, 3.0F), 0x1p-126F);
    EXPECT_EQ(power(0x1p100F, -2.0F), 0x1p-126F);
}

// Each row of the special values, and what rows further down take from it.
TEST_P(TablePower, SpecialValues)
{
    struct Row
    {
        float m_x;
        float m_y;
        float m_result;
    };
    const Row rows[] = {
        // Negative bases. An even exponent turns the sign as well.
        {-8.0F, g_third, g_nan},
        {-2.0F, 0.5F, g_nan},
        {-2.0F, 3.0F, -8.0F},
        {-2.0F, -3.0F, -0.125F},
        {-2.0F, 2.0F, -4.0F},
        {-1.0F, 2.0F, -1.0F},
        // Zero. A negative zero keeps its sign with a negative odd exponent alone.
        {0.0F, 3.0F, 0.0F},
        {-0.0F, 3.0F, 0.0F},
        {-0.0F, 2.4F, 0.0F},
        {0.0F, -3.0F, g_infinity},
        {-0.0F, -3.0F, -g_infinity},
        {-0.0F, -2.0F, g_infinity},
        {-0.0F, -0.5F, g_infinity},
        {0.0F, 0.0F, 1.0F},
        {-0.0F, 0.0F, 1.0F},
        // Infinite exponents.
        {2.0F, g_infinity, g_infinity},
        {0.5F, g_infinity, 0.0F},
        {0.0F, g_infinity, 0.0F},
        {-2.0F, g_infinity, g_infinity},
        {-0.5F, g_infinity, 0.0F},
        {-1.0F, g_infinity, 1.0F},
        {2.0F, -g_infinity, 0.0F},
        {0.5F, -g_infinity, g_infinity},
        {0.0F, -g_infinity, g_infinity},
        {-0.0F, -g_infinity, g_infinity},
        {-2.0F, -g_infinity, 0.0F},
        {-0.5F, -g_infinity, g_infinity},
        {-1.0F, -g_infinity, 1.0F},
        // Infinite bases.
        {-g_infinity, 3.0F, -g_infinity},
        {-g_infinity, 2.0F, g_infinity},
        {-g_infinity, 0.5F, g_infinity},
        {-g_infinity, -3.0F, -0.0F},
        {-g_infinity, -2.0F, 0.0F},
        {-g_infinity, -0.5F, 0.0F},
        {-g_infinity, g_infinity, g_infinity},
        {-g_infinity, -g_infinity, 0.0F},
        {g_infinity, g_third, g_infinity},
        {g_infinity, 3.0F, g_infinity},
        {g_infinity, -3.0F, 0.0F},
        {g_infinity, g_infinity, g_infinity},
        {g_infinity, -g_infinity, 0.0F},
        // NaN.
        {g_nan, 3.0F, g_nan},
        {g_nan, g_infinity, g_nan},
        {2.0F, g_nan, g_nan},
        {0.0F, g_nan, g_nan},
        {-2.0F, g_nan, g_nan},
        {g_infinity, g_nan, g_nan},
        {-g_infinity, g_nan, g_nan},
        // One, and to the zeroth.
        {1.0F, g_nan, 1.0F},
        {1.0F, g_infinity, 1.0F},
        {1.0F, -g_infinity, 1.0F},
        // Sixteen times these exponents is infinite.
        {1.0F, 3e38F, 1.0F},
        {1.0F, 2.2e37F, 1.0F},
        {g_nan, 0.0F, 1.0F},
        {g_nan, -0.0F, 1.0F},
        {g_infinity, 0.0F, 1.0F},
        {-g_infinity, -0.0F, 1.0F},
        {-2.0F, 0.0F, 1.0F},
        {0.3F, 0.0F, 1.0F},
    };
    for (const Row& row : rows)
    {
        const float result = power(row.m_x, row.m_y);
        EXPECT_TRUE(sameValue(result, row.m_result)) << row.m_x << " to " << row.m_y << ": " << result << " for " << row.m_result;
    }
}

// A lane does not see its neighbours.
TEST_P(TablePower, EachLaneIsOnItsOwn)
{
    const std::vector<float> bases{0.0F,  1.0F, g_nan, g_infinity,  -3.0F, 0.25F, 1e-40F,
                                   -0.0F, 5.0F, 7e8F,  -g_infinity, 0.9F,  1.1F};
    for (float y : {g_third, 2.4F})
    {
        const std::vector<float> together = power(bases, y);
        for (std::size_t i = 0; i < bases.size(); ++i)
        {
            EXPECT_TRUE(sameValue(together[i], power(bases[i], y))) << bases[i];
        }
    }
}
} // namespace kovis::test
