#include "KOVISIPLColor/kernel/KernelEdgeCase.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <type_traits>
#include <vector>

// Edge cases by literal value, in every form.

namespace kovis::test
{
namespace
{
namespace kernel = imaproc::color::kernel;

/// One sample through one coefficient and one offset.
template <class Register, class Tin, class Tout>
Tout linearOf(Tin sample, float factor = 1.0F, float offset = 0.0F)
{
    const std::vector<Tin> from(g_room, sample);
    std::vector<Tout> to(g_room);
    const std::vector<float> matrix{factor, offset};
    const Tin* in[] = {from.data()};
    Tout* out[] = {to.data()};
    kernel::linearConvert<Register, Tin, Tout>(1, 1, matrix.data(), 32, in, out);
    EXPECT_EQ(std::memcmp(&to[0], &to[31], sizeof(Tout)), 0) << "lanes differ";
    return to[0];
}

template <class Register, class Tout>
Tout storeOf(float value)
{
    return linearOf<Register, float, Tout>(value);
}

template <class Register, class Tin, class Tout>
Tout copyOf(Tin sample)
{
    const std::vector<Tin> from(g_room, sample);
    std::vector<Tout> to(g_room);
    const Tin* in[] = {from.data()};
    Tout* out[] = {to.data()};
    kernel::copyConvert<Register, Tin, Tout>(1, 32, in, out);
    EXPECT_EQ(std::memcmp(&to[0], &to[31], sizeof(Tout)), 0) << "lanes differ";
    return to[0];
}

template <class Register, class Tin = float, class Tout = float>
std::array<Tout, 3> toHSV(Tin r, Tin g, Tin b)
{
    return pixelOf<Tin, Tout>(&kernel::fromRGBToHSVConvert<Register, Tin, Tout>, {r, g, b});
}

template <class Register, class Tin = float, class Tout = float>
std::array<Tout, 3> toRGB(Tin h, Tin s, Tin v)
{
    return pixelOf<Tin, Tout>(&kernel::fromHSVToRGBConvert<Register, Tin, Tout>, {h, s, v});
}

} // namespace

/// Float to float, which every form serves.
template <class Tag>
class FloatKernelEdgeCase : public KernelEdgeCase<Tag>
{
};
TYPED_TEST_SUITE(FloatKernelEdgeCase, AllForms, FormNames);

/// Integers on either side, which AVX alone does not serve.
template <class Tag>
class IntegerKernelEdgeCase : public KernelEdgeCase<Tag>
{
};
TYPED_TEST_SUITE(IntegerKernelEdgeCase, IntegerForms, FormNames);

TYPED_TEST(FloatKernelEdgeCase, WithoutInputChannelsEachRowStoresItsOffset)
{
    using Form = typename TypeParam::Register;
    std::vector<float> first(g_room);
    std::vector<float> second(g_room);
    float* out[] = {first.data(), second.data()};
    const float matrix[] = {3.5F, -2.0F};
    kernel::linearConvert<Form, float, float>(0, 2, matrix, 32, nullptr, out);
    EXPECT_EQ(first[31], 3.5F);
    EXPECT_EQ(second[0], -2.0F);
}

TYPED_TEST(FloatKernelEdgeCase, WithoutPixelsOrRowsNothingIsTouched)
{
    using Form = typename TypeParam::Register;
    kernel::linearConvert<Form, float, float>(3, 3, nullptr, 0, nullptr, nullptr);
    kernel::linearConvert<Form, float, float>(3, 0, nullptr, 0, nullptr, nullptr);
    kernel::linearConvert<Form, float, float>(3, 0, nullptr, 1, nullptr, nullptr);
    kernel::copyConvert<Form, float, float>(3, 0, nullptr, nullptr);
    kernel::fromRGBToHSVConvert<Form, float, float>(0, nullptr, nullptr);
    kernel::fromHSVToRGBConvert<Form, float, float>(0, nullptr, nullptr);
}

TYPED_TEST(FloatKernelEdgeCase, AFloatResultIsNeitherRoundedNorLimited)
{
    using Form = typename TypeParam::Register;
    EXPECT_EQ((storeOf<Form, float>(0.3F)), 0.3F);
    EXPECT_EQ((storeOf<Form, float>(-1e30F)), -1e30F);
    EXPECT_TRUE(std::isnan(storeOf<Form, float>(std::numeric_limits<float>::quiet_NaN())));
}

TYPED_TEST(IntegerKernelEdgeCase, RoundsHalfAwayFromZero)
{
    using Form = typename TypeParam::Register;
    EXPECT_EQ((storeOf<Form, int>(-0.5F)), -1);
    EXPECT_EQ((storeOf<Form, int>(-0.49F)), 0);
    EXPECT_EQ((storeOf<Form, int>(0.5F)), 1);
    EXPECT_EQ((storeOf<Form, int>(-0.0F)), 0);
    EXPECT_EQ((storeOf<Form, unsigned char>(254.5F)), 255);
    EXPECT_EQ((storeOf<Form, unsigned char>(254.49F)), 254);
    EXPECT_EQ((storeOf<Form, signed char>(-0.5F)), -1);
    EXPECT_EQ((storeOf<Form, signed char>(127.4F)), 127);
}

// The half is added in float, so that the sum itself may round.
TYPED_TEST(IntegerKernelEdgeCase, TheHalfIsAddedInFloat)
{
    using Form = typename TypeParam::Register;
    EXPECT_EQ((storeOf<Form, int>(0.49999997F)), 1);
    EXPECT_EQ((storeOf<Form, int>(8388609.0F)), 8388610);
    EXPECT_EQ((storeOf<Form, int>(8388610.0F)), 8388610);
    EXPECT_EQ((storeOf<Form, int>(8388611.0F)), 8388612);
    EXPECT_EQ((storeOf<Form, int>(16777215.0F)), 16777216);
    EXPECT_EQ((storeOf<Form, unsigned int>(8388609.0F)), 8388610U);
}

TYPED_TEST(IntegerKernelEdgeCase, SaturatesToTheTargetsRange)
{
    using Form = typename TypeParam::Register;
    EXPECT_EQ((storeOf<Form, unsigned char>(256.2F)), 255);
    EXPECT_EQ((storeOf<Form, unsigned char>(255.7F)), 255);
    EXPECT_EQ((storeOf<Form, unsigned char>(-3.0F)), 0);
    EXPECT_EQ((storeOf<Form, unsigned char>(-0.3F)), 0);
    EXPECT_EQ((storeOf<Form, unsigned char>(-7.0F)), 0);
    EXPECT_EQ((storeOf<Form, signed char>(-128.7F)), -128);
    EXPECT_EQ((storeOf<Form, short>(40000.0F)), 32767);
    EXPECT_EQ((storeOf<Form, unsigned short>(70000.0F)), 65535);
    EXPECT_EQ((storeOf<Form, int>(3000000000.0F)), 2147483647);
    EXPECT_EQ((storeOf<Form, int>(-3000000000.0F)), std::numeric_limits<int>::min());
    EXPECT_EQ((storeOf<Form, int>(std::numeric_limits<float>::infinity())), 2147483647);
    EXPECT_EQ((storeOf<Form, int>(-std::numeric_limits<float>::infinity())), std::numeric_limits<int>::min());
}

TYPED_TEST(IntegerKernelEdgeCase, UnsignedIntIsLimitedInDoubleAndTruncatedInTwoParts)
{
    using Form = typename TypeParam::Register;
    EXPECT_EQ((storeOf<Form, unsigned int>(4294967296.0F)), 4294967295U);
    EXPECT_EQ((storeOf<Form, unsigned int>(4294967040.0F)), 4294967040U);
    EXPECT_EQ((storeOf<Form, unsigned int>(3000000000.0F)), 3000000000U);
    EXPECT_EQ((storeOf<Form, unsigned int>(2147483648.0F)), 2147483648U);
    EXPECT_EQ((storeOf<Form, unsigned int>(2147483520.0F)), 2147483520U);
    EXPECT_EQ((storeOf<Form, unsigned int>(-1.0F)), 0U);
    EXPECT_EQ((storeOf<Form, unsigned int>(1e30F)), 4294967295U);
}

TYPED_TEST(IntegerKernelEdgeCase, WideIntegersLoadCorrectlyRounded)
{
    using Form = typename TypeParam::Register;
    EXPECT_EQ((linearOf<Form, unsigned int, float>(4294967295U)), 4294967296.0F);
    EXPECT_EQ((linearOf<Form, unsigned int, float>(4294967167U)), 4294967040.0F);
    EXPECT_EQ((linearOf<Form, int, float>(16777217)), 16777216.0F);
    EXPECT_EQ((linearOf<Form, int, float>(-16777219)), -16777220.0F);
}

// Not one rule: generic and SSE2 give the greatest value, AVX2 with and without FMA3 the least.
TYPED_TEST(IntegerKernelEdgeCase, ANaNStoresWhatTheFormSays)
{
    using Form = typename TypeParam::Register;
    constexpr bool bGreatest = std::is_same_v<Form, simd::generic::Register> || std::is_same_v<Form, simd::sse2::Register>;
    const float nan = std::numeric_limits<float>::quiet_NaN();
    EXPECT_EQ((storeOf<Form, signed char>(nan)), bGreatest ? 127 : -128);
    EXPECT_EQ((storeOf<Form, unsigned char>(nan)), bGreatest ? 255 : 0);
    EXPECT_EQ((storeOf<Form, short>(nan)), bGreatest ? 32767 : -32768);
    EXPECT_EQ((storeOf<Form, unsigned short>(nan)), bGreatest ? 65535 : 0);
    EXPECT_EQ((storeOf<Form, int>(nan)), bGreatest ? 2147483647 : std::numeric_limits<int>::min());
    EXPECT_EQ((storeOf<Form, unsigned int>(nan)), bGreatest ? 4294967295U : 0U);
    EXPECT_EQ((copyOf<Form, float, signed char>(nan)), bGreatest ? 127 : -128);
    EXPECT_EQ((copyOf<Form, float, unsigned short>(nan)), bGreatest ? 65535 : 0);
    EXPECT_EQ((copyOf<Form, float, int>(nan)), bGreatest ? 2147483647 : std::numeric_limits<int>::min());
    EXPECT_EQ((copyOf<Form, float, unsigned int>(nan)), bGreatest ? 4294967295U : 0U);
    // A sum of infinities is a NaN as well.
    EXPECT_EQ((linearOf<Form, float, unsigned char>(std::numeric_limits<float>::infinity(), 1.0F,
                                                    -std::numeric_limits<float>::infinity())),
              bGreatest ? 255 : 0);
}

TYPED_TEST(IntegerKernelEdgeCase, TheCopyTruncatesAndSaturates)
{
    using Form = typename TypeParam::Register;
    EXPECT_EQ((copyOf<Form, float, unsigned char>(255.9F)), 255);
    EXPECT_EQ((copyOf<Form, float, unsigned char>(254.9F)), 254);
    EXPECT_EQ((copyOf<Form, float, unsigned char>(300.0F)), 255);
    EXPECT_EQ((copyOf<Form, float, unsigned char>(-1.5F)), 0);
    EXPECT_EQ((copyOf<Form, float, int>(-1.9F)), -1);
    EXPECT_EQ((copyOf<Form, float, int>(2147483648.0F)), 2147483647);
    EXPECT_EQ((copyOf<Form, float, unsigned int>(3000000000.0F)), 3000000000U);
    EXPECT_EQ((copyOf<Form, int, unsigned int>(-5)), 0U);
    EXPECT_EQ((copyOf<Form, unsigned int, int>(4000000000U)), 2147483647);
    EXPECT_EQ((copyOf<Form, int, unsigned short>(std::numeric_limits<int>::min())), 0);
    EXPECT_EQ((copyOf<Form, int, unsigned short>(2147483647)), 65535);
    EXPECT_EQ((copyOf<Form, unsigned int, signed char>(4000000000U)), 127);
    EXPECT_EQ((copyOf<Form, unsigned int, float>(4294967295U)), 4294967296.0F);
}

/// Elements of a plane of 64 that one call of count changes.
template <class Register>
unsigned long nbWritten(unsigned long count)
{
    const std::vector<float> from(g_room, 1.0F);
    std::vector<float> to(g_room, -1.0F);
    const float* in[] = {from.data()};
    float* out[] = {to.data()};
    const float matrix[] = {1.0F, 0.0F};
    kernel::linearConvert<Register, float, float>(1, 1, matrix, count, in, out);
    return static_cast<unsigned long>(std::count(to.begin(), to.end(), 1.0F));
}

TYPED_TEST(FloatKernelEdgeCase, WritesWholeBlocksAndTheGenericFormExactlyTheCount)
{
    using Form = typename TypeParam::Register;
    using Reach = std::array<unsigned long, 3>;
    const Reach expected = std::is_same_v<Form, simd::generic::Register> ? Reach{1, 16, 17}
                           : std::is_same_v<Form, simd::sse2::Register>  ? Reach{16, 16, 32}
                                                                         : Reach{32, 32, 32};
    EXPECT_EQ((Reach{nbWritten<Form>(1), nbWritten<Form>(16), nbWritten<Form>(17)}), expected);
}

TYPED_TEST(FloatKernelEdgeCase, PixelsWithoutAHueGiveZero)
{
    using Form = typename TypeParam::Register;
    EXPECT_EQ((toHSV<Form>(0.0F, 0.0F, 0.0F)), (Pixel{0.0F, 0.0F, 0.0F}));
    EXPECT_EQ((toHSV<Form>(128.0F, 128.0F, 128.0F)), (Pixel{0.0F, 0.0F, 128.0F}));
}

TYPED_TEST(FloatKernelEdgeCase, HuesOfPureColoursAndTies)
{
    using Form = typename TypeParam::Register;
    EXPECT_EQ((toHSV<Form>(255.0F, 0.0F, 0.0F)), (Pixel{0.0F, 1.0F, 255.0F}));
    EXPECT_EQ((toHSV<Form>(0.0F, 255.0F, 0.0F)), (Pixel{120.0F, 1.0F, 255.0F}));
    EXPECT_EQ((toHSV<Form>(0.0F, 0.0F, 255.0F)), (Pixel{240.0F, 1.0F, 255.0F}));
    EXPECT_EQ((toHSV<Form>(255.0F, 255.0F, 0.0F)), (Pixel{60.0F, 1.0F, 255.0F}));
    EXPECT_EQ((toHSV<Form>(0.0F, 255.0F, 255.0F)), (Pixel{180.0F, 1.0F, 255.0F}));
}

// -30.117647 + 360: the product of the fold, -1 * 360, is exact, so that the fused form has the bits of the others.
TYPED_TEST(FloatKernelEdgeCase, ANegativeHueIsFolded)
{
    using Form = typename TypeParam::Register;
    const Pixel hsv = toHSV<Form>(255.0F, 0.0F, 128.0F);
    EXPECT_EQ(std::bit_cast<std::uint32_t>(hsv[0]), 0x43A4F0F1U); // 329.88235
    EXPECT_EQ(hsv[1], 1.0F);
    EXPECT_EQ(hsv[2], 255.0F);
}

TYPED_TEST(FloatKernelEdgeCase, TenTwentyThirtyComesBackExactly)
{
    using Form = typename TypeParam::Register;
    const Pixel hsv = toHSV<Form>(10.0F, 20.0F, 30.0F);
    EXPECT_EQ(hsv, (Pixel{210.0F, 0.6666667F, 30.0F}));
    EXPECT_EQ((toRGB<Form>(hsv[0], hsv[1], hsv[2])), (Pixel{10.0F, 20.0F, 30.0F}));
}

TYPED_TEST(IntegerKernelEdgeCase, ByteHSVHoldsWholeDegreesAndASaturationOfZeroOrOne)
{
    using Form = typename TypeParam::Register;
    EXPECT_EQ((toHSV<Form, unsigned char, unsigned char>(0, 0, 255)), (Bytes{240, 1, 255}));
    EXPECT_EQ((toHSV<Form, unsigned char, unsigned char>(255, 0, 128)), (Bytes{255, 1, 255}));
    EXPECT_EQ((toHSV<Form, unsigned char, unsigned char>(10, 20, 30)), (Bytes{210, 1, 30}));
    EXPECT_EQ((toHSV<Form, unsigned char, short>(255, 0, 128)), (std::array<short, 3>{330, 1, 255}));
    EXPECT_EQ((toHSV<Form, unsigned char, signed char>(0, 0, 100)), (std::array<signed char, 3>{127, 1, 100}));
}

TYPED_TEST(FloatKernelEdgeCase, AnyHueIsAccepted)
{
    using Form = typename TypeParam::Register;
    const Pixel red{200.0F, 0.0F, 0.0F};
    EXPECT_EQ((toRGB<Form>(0.0F, 1.0F, 200.0F)), red);
    EXPECT_EQ((toRGB<Form>(360.0F, 1.0F, 200.0F)), red);
    EXPECT_EQ((toRGB<Form>(720.0F, 1.0F, 200.0F)), red);
    EXPECT_EQ((toRGB<Form>(-30.0F, 1.0F, 200.0F)), (toRGB<Form>(330.0F, 1.0F, 200.0F)));
    EXPECT_EQ((toRGB<Form>(-0.000001F, 1.0F, 200.0F)), red);
    EXPECT_EQ((toRGB<Form>(std::numeric_limits<float>::quiet_NaN(), 1.0F, 200.0F)), red);
}

TYPED_TEST(FloatKernelEdgeCase, SectorsMeetAtThePureColours)
{
    using Form = typename TypeParam::Register;
    EXPECT_EQ((toRGB<Form>(60.0F, 1.0F, 200.0F)), (Pixel{200.0F, 200.0F, 0.0F}));
    EXPECT_EQ((toRGB<Form>(120.0F, 1.0F, 200.0F)), (Pixel{0.0F, 200.0F, 0.0F}));
    EXPECT_EQ((toRGB<Form>(180.0F, 1.0F, 200.0F)), (Pixel{0.0F, 200.0F, 200.0F}));
    EXPECT_EQ((toRGB<Form>(240.0F, 1.0F, 200.0F)), (Pixel{0.0F, 0.0F, 200.0F}));
    EXPECT_EQ((toRGB<Form>(300.0F, 1.0F, 200.0F)), (Pixel{200.0F, 0.0F, 200.0F}));
}

TYPED_TEST(FloatKernelEdgeCase, WithoutSaturationAllChannelsAreTheValue)
{
    using Form = typename TypeParam::Register;
    for (float hue : {-1000.0F, 0.0F, 17.0F, 60.0F, 200.0F, 359.9F, 5000.0F})
    {
        EXPECT_EQ((toRGB<Form>(hue, 0.0F, 77.0F)), (Pixel{77.0F, 77.0F, 77.0F})) << hue;
    }
}

// The one visible trace of fusing: a product and a sum that differ by one rounding.
TYPED_TEST(FloatKernelEdgeCase, OnlyTheFMA3FormFuses)
{
    using Form = typename TypeParam::Register;
    const float a = 1.0F + 0x1p-12F;
    const float result = linearOf<Form, float, float>(a, a, -1.0F);
    const bool bFused = std::is_same_v<Form, simd::fma3_avx2::Register>;
    EXPECT_EQ(result, bFused ? 0x1p-11F + 0x1p-24F : 0x1p-11F);
}
} // namespace kovis::test
