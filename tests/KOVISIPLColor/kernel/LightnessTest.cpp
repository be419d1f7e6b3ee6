#include "KOVISIPL/KOVISIPLColor/Processor/LightnessImg/Kernel/LightnessKernels.h"
#include "KOVISIPLColor/kernel/KernelGrid.h"
#include "KOVISIPLColor/kernel/KernelSamples.h"
#include "support/LightnessModel.h"
#include "support/PixelModel.h"

#include <bit>
#include <vector>

namespace kovis::test
{
namespace
{
using imaproc::color::kernel::lightness;

constexpr int g_average = 0;
constexpr int g_midRange = 1;
constexpr int g_luminosity = 2;

template <class T>
std::vector<T> pixelOf(PlaneSet<T>& planes, unsigned long i)
{
    std::vector<T> channels;
    for (std::size_t c = 0; c < planes.size(); ++c)
    {
        channels.push_back(planes[c][i]);
    }
    return channels;
}

/// Planes that end with the last block, at a guard page: nothing past it is read or written.
template <class Register, class Tin, class Tout>
struct LightnessCheck
{
    static void run(const ModelForm& form)
    {
        for (const int formula : {g_average, g_midRange, g_luminosity, 7})
        {
            for (const unsigned long nbChannels : {1UL, 2UL, 3UL, 4UL, 5UL})
            {
                for (const unsigned long count : g_counts)
                {
                    if (formula < g_luminosity || nbChannels >= 3)
                    {
                        runOne(form, formula, nbChannels, count);
                    }
                }
            }
        }
    }

    static void runOne(const ModelForm& form, int formula, unsigned long nbChannels, unsigned long count)
    {
        const unsigned long reach = modelReach(form, count);
        PlaneSet<Tin> in(nbChannels, reach);
        in.fill(static_cast<unsigned int>(17 * nbChannels + count));
        PlaneSet<Tin> out(1, reach);
        lightness<Register, Tin>(formula, nbChannels, count, in.in(), out.out()[0]);
        for (unsigned long i = 0; i < reach; ++i)
        {
            const Tin expected = modelLightness(form, formula, pixelOf(in, i));
            ASSERT_TRUE(sameValue(out[0][i], expected)) << "formula " << formula << ", " << nbChannels << " channels, count "
                                                        << count << ", pixel " << i << ": " << +out[0][i] << " for " << +expected;
        }
    }
};

/// Whole blocks and nothing else are written, and no address needs to be aligned.
template <class Register, class Tin, class Tout>
struct LightnessReachCheck
{
    static void run(const ModelForm& form)
    {
        constexpr unsigned long room = 192;
        const std::vector<Tin> first = makeSamples<Tin>(room, 1);
        const std::vector<Tin> second = makeSamples<Tin>(room, 2);
        const Tin* const in[] = {first.data() + 1, second.data() + 2};
        const auto untouched = static_cast<Tin>(77);
        for (const unsigned long count : g_counts)
        {
            if (count > 65)
            {
                continue;
            }
            std::vector<Tin> out(room, untouched);
            lightness<Register, Tin>(g_average, 2, count, in, out.data() + 3);
            const unsigned long reach = modelReach(form, count);
            for (unsigned long i = 0; i < room; ++i)
            {
                const bool bWritten = i >= 3 && i < 3 + reach;
                const Tin expected = bWritten ? modelLightness<Tin>(form, g_average, {in[0][i - 3], in[1][i - 3]}) : untouched;
                ASSERT_TRUE(sameValue(out[i], expected)) << "count " << count << ", element " << i;
            }
        }
    }
};

template <template <class, class, class> class Check, class Register, class... Ts>
void addTypes(std::vector<GridPlace>& grid, std::tuple<Ts...>*)
{
    (addPlace<Check, Register, Ts, Ts>(grid), ...);
}

/// The forms of the lightness, each with the pixel types that it serves.
template <template <class, class, class> class Check>
std::vector<GridPlace> makeLightnessGrid()
{
    std::vector<GridPlace> grid;
    PixelTypes* const types = nullptr;
    addTypes<Check, simd::generic::Register>(grid, types);
    addTypes<Check, simd::sse2::Register>(grid, types);
    addPlace<Check, simd::avx::Register, float, float>(grid);
    addTypes<Check, simd::avx2::Register>(grid, types);
    addTypes<Check, simd::avx512::Register>(grid, types);
    return grid;
}

/// One pixel; every lane of the block gives the same.
template <class Register, class T>
T lightnessOf(int formula, const std::vector<T>& channels)
{
    std::vector<std::vector<T>> planes;
    std::vector<const T*> in;
    for (const T value : channels)
    {
        planes.emplace_back(64, value);
    }
    for (const std::vector<T>& plane : planes)
    {
        in.push_back(plane.data());
    }
    std::vector<T> out(64);
    lightness<Register, T>(formula, channels.size(), 64, in.data(), out.data());
    for (const T& lane : out)
    {
        EXPECT_TRUE(sameValue(lane, out[0])) << "lanes differ";
    }
    return out[0];
}

/// The same pixel in the forms of all pixel types. What AVX512 gives comes apart, for there it can differ.
template <class T>
void expectForms(int formula, const std::vector<T>& channels, T expected, T avx512)
{
    const auto pixel = [&] { return testing::PrintToString(channels) + " by formula " + std::to_string(formula); };
    EXPECT_TRUE(sameValue(lightnessOf<simd::generic::Register>(formula, channels), expected)) << "generic, " << pixel();
    EXPECT_TRUE(sameValue(lightnessOf<simd::sse2::Register>(formula, channels), expected)) << "SSE2, " << pixel();
    if constexpr (std::is_same_v<T, float>)
    {
        if (canRun(g_avxForm))
        {
            EXPECT_TRUE(sameValue(lightnessOf<simd::avx::Register>(formula, channels), expected)) << "AVX, " << pixel();
        }
    }
    if (canRun(g_avx2Form))
    {
        EXPECT_TRUE(sameValue(lightnessOf<simd::avx2::Register>(formula, channels), expected)) << "AVX2, " << pixel();
    }
    if (canRun(g_avx512Form))
    {
        EXPECT_TRUE(sameValue(lightnessOf<simd::avx512::Register>(formula, channels), avx512)) << "AVX512, " << pixel();
    }
}

template <class T>
void expectEverywhere(int formula, const std::vector<T>& channels, T expected)
{
    expectForms(formula, channels, expected, expected);
}

using S8 = signed char;
using U8 = unsigned char;
using U16 = unsigned short;
using U32 = unsigned int;
constexpr float g_nan = std::numeric_limits<float>::quiet_NaN();
constexpr float g_infinity = std::numeric_limits<float>::infinity();
constexpr float g_greatest = std::numeric_limits<float>::max();
} // namespace

class LightnessGrid : public KernelGridTest
{
};
TEST_P(LightnessGrid, GivesTheBitsOfTheModel)
{
    GetParam().m_check(*GetParam().m_form);
}
INSTANTIATE_TEST_SUITE_P(Lightness, LightnessGrid, testing::ValuesIn(makeLightnessGrid<LightnessCheck>()), placeName);
INSTANTIATE_TEST_SUITE_P(LightnessReach, LightnessGrid, testing::ValuesIn(makeLightnessGrid<LightnessReachCheck>()), placeName);

TEST(Lightness, RoundsHalfAwayFromZero)
{
    expectEverywhere<U8>(g_average, {1, 2}, 2);
    expectEverywhere<S8>(g_average, {-1, -2}, -2);
    expectEverywhere<U8>(g_midRange, {1, 4}, 3);
    expectEverywhere<S8>(g_midRange, {-1, -4}, -3);
    expectEverywhere<short>(g_average, {-1, -1, 0, 0}, -1);
    expectEverywhere<U8>(g_average, {0, 0, 1}, 0);
    expectEverywhere<U8>(g_luminosity, {255, 255, 255}, 255);
    expectEverywhere<U16>(g_luminosity, {65535, 65535, 65535}, 65535);
    expectEverywhere<float>(g_average, {1.0F, 2.0F}, 1.5F);
}

TEST(Lightness, CopiesOneChannelOfEightAndSixteenBits)
{
    for (int value = 0; value < 256; ++value)
    {
        for (const int formula : {g_average, g_midRange})
        {
            expectEverywhere<U8>(formula, {static_cast<U8>(value)}, static_cast<U8>(value));
            expectEverywhere<S8>(formula, {static_cast<S8>(value - 128)}, static_cast<S8>(value - 128));
            expectEverywhere<U16>(formula, {static_cast<U16>(257 * value)}, static_cast<U16>(257 * value));
            expectEverywhere<short>(formula, {static_cast<short>(257 * value - 32768)}, static_cast<short>(257 * value - 32768));
        }
    }
}

TEST(Lightness, IsComputedInFloatForThirtyTwoBitsToo)
{
    for (const int formula : {g_average, g_midRange})
    {
        expectEverywhere<int>(formula, {16777217}, 16777216);
        expectEverywhere<int>(formula, {8388609}, 8388610); // the half is added in float
        expectEverywhere<int>(formula, {-2147483647 - 1}, -2147483647 - 1);
        expectEverywhere<U32>(formula, {16777217U}, 16777216U);
        expectEverywhere<U32>(formula, {2147483648U}, 2147483648U);
        expectEverywhere<U32>(formula, {4294967040U}, 4294967040U);
    }
    expectEverywhere<float>(g_midRange, {3e38F}, g_infinity);
    expectEverywhere<float>(g_average, {3e38F, 3e38F}, g_infinity);
}

TEST(Lightness, WrapsAtTheEndOfThirtyTwoBits)
{
    const int least = std::numeric_limits<int>::min();
    for (const int formula : {g_average, g_midRange, g_luminosity})
    {
        expectEverywhere<int>(formula, {2147483647, 2147483647, 2147483647}, least);
        expectForms<U32>(formula, {4294967295U, 4294967295U, 4294967295U}, 0U, 4294967295U);
    }
}

TEST(Lightness, PassesOverANanInTheMiddleOfTheRangeAlone)
{
    expectEverywhere<float>(g_midRange, {g_nan, 1.0F, 4.0F}, 2.5F);
    expectEverywhere<float>(g_midRange, {1.0F, g_nan, 4.0F}, 2.5F);
    expectEverywhere<float>(g_midRange, {1.0F, 4.0F, g_nan}, 2.5F);
    expectEverywhere<float>(g_midRange, {g_nan}, 0.0F); // half the sum of the greatest and the lowest float
    expectEverywhere<float>(g_average, {1.0F, g_nan, 4.0F}, g_nan);
    expectEverywhere<float>(g_luminosity, {1.0F, 4.0F, g_nan}, g_nan);
    expectEverywhere<float>(g_luminosity, {g_nan, 4.0F, 1.0F}, g_nan);
    expectEverywhere<float>(g_midRange, {g_infinity}, g_infinity);
    expectEverywhere<float>(g_midRange, {g_infinity, 1.0F}, g_infinity);
    expectEverywhere<float>(g_midRange, {-g_infinity, g_infinity}, g_nan);
}

TEST(Lightness, BeginsTheRangeAtTheLowestFloat)
{
    expectEverywhere<float>(g_midRange, {-5.0F, -3.0F}, -4.0F);
    expectEverywhere<float>(g_midRange, {-g_greatest}, -g_infinity);
}

TEST(Lightness, KeepsTheRunningValuesOnEqualOnes)
{
    // The zero that came first stays in both, and -0 + -0 is -0, all other sums of zeros are +0.
    expectEverywhere<float>(g_midRange, {-0.0F, 0.0F}, -0.0F);
    expectEverywhere<float>(g_midRange, {0.0F, -0.0F}, 0.0F);
    expectEverywhere<float>(g_midRange, {-0.0F, -0.0F}, -0.0F);
    expectEverywhere<float>(g_average, {-0.0F, -0.0F}, 0.0F); // the sum begins at +0
}

TEST(Lightness, FusesProductsOfTheLuminosityInAvx512)
{
    if (!canRun(g_avx512Form))
    {
        GTEST_SKIP() << "this processor has no AVX512 (F, BW, DQ and VL), whose fused products are tested here";
    }
    // Worked out by hand from the weights' bits, with one rounding less each.
    expectForms<U8>(g_luminosity, {143, 85, 161}, 103, 102);
    expectForms<S8>(g_luminosity, {109, 15, -117}, 26, 25);
    expectForms<short>(g_luminosity, {28287, -4472, -32099}, 474, 473);
    expectForms<U16>(g_luminosity, {29032, 3301, 16058}, 9598, 9597);
    expectForms<int>(g_luminosity, {770031841, 504941597, 580866285}, 565925248, 565925312);
    expectForms<U32>(g_luminosity, {3952042575U, 3774472248U, 1664766190U}, 3664082432U, 3664082688U);
    // A float fuses the red product as well.
    expectForms<float>(g_luminosity, {648161.0F, 56446.0F, 299103.0F}, std::bit_cast<float>(0x48410f0aU),
                       std::bit_cast<float>(0x48410f08U));
    expectForms<float>(g_luminosity, {390400.0F, 264959.0F, 802081.0F}, std::bit_cast<float>(0x48a09886U),
                       std::bit_cast<float>(0x48a09884U));
    // The same numbers as integers do not.
    expectForms<int>(g_luminosity, {648161, 56446, 299103}, 197692, 197692);
}

TEST(Lightness, AnswersTwoToThePowerThirtyTwoInAvx512AsTheHardwareDoes)
{
    if (!canRun(g_avx512Form))
    {
        GTEST_SKIP() << "this processor has no AVX512 (F, BW, DQ and VL), whose unsigned conversion is tested here";
    }
    EXPECT_EQ((lightnessOf<simd::avx512::Register, U32>(g_average, {4294967295U})), 4294967295U);
    EXPECT_EQ((lightnessOf<simd::avx512::Register, U32>(g_average, {4294967167U})), 4294967040U);
    EXPECT_EQ((lightnessOf<simd::avx512::Register, U32>(g_average, {4294967168U})), 4294967295U);
}

TEST(Lightness, LeavesEverythingAloneForACountOfZero)
{
    unsigned char out = 77;
    lightness<simd::generic::Register, U8>(g_average, 0, 0, nullptr, &out);
    lightness<simd::sse2::Register, U8>(g_luminosity, 3, 0, nullptr, &out);
    lightness<simd::sse2::Register, U8>(g_midRange, 3, 0, nullptr, &out);
    if (canRun(g_avx2Form))
    {
        lightness<simd::avx2::Register, U8>(g_luminosity, 3, 0, nullptr, &out);
    }
    if (canRun(g_avx512Form))
    {
        lightness<simd::avx512::Register, U8>(g_luminosity, 3, 0, nullptr, &out);
    }
    EXPECT_EQ(out, 77);
    float outFloat = 77.0F;
    if (canRun(g_avxForm))
    {
        lightness<simd::avx::Register, float>(g_average, 3, 0, nullptr, &outFloat);
    }
    EXPECT_EQ(outFloat, 77.0F);
}
} // namespace kovis::test
