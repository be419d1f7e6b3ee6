#include "KOVISIPLColor/kernel/KernelEdgeCase.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <type_traits>

// Lab by literal value, in every form.

namespace kovis::test
{
namespace
{
namespace kernel = imaproc::color::kernel;

template <class Register, class Tin = float, class Tout = float>
std::array<Tout, 3> toLab(std::array<Tin, 3> xyz)
{
    return pixelOf<Tin, Tout>(&kernel::fromXYZToLabConvert<Register, Tin, Tout>, xyz);
}

template <class Register, class Tin = float, class Tout = float>
std::array<Tout, 3> toXYZ(std::array<Tin, 3> lab)
{
    return pixelOf<Tin, Tout>(&kernel::fromLabToXYZConvert<Register, Tin, Tout>, lab);
}

constexpr float g_slope = std::bit_cast<float>(0x3E038028U);
constexpr float g_nearestSlope = std::bit_cast<float>(0x3E038027U);
} // namespace

template <class Tag>
class FloatLabEdgeCase : public KernelEdgeCase<Tag>
{
};
TYPED_TEST_SUITE(FloatLabEdgeCase, AllForms, FormNames);

template <class Tag>
class IntegerLabEdgeCase : public KernelEdgeCase<Tag>
{
};
TYPED_TEST_SUITE(IntegerLabEdgeCase, IntegerForms, FormNames);

TYPED_TEST(FloatLabEdgeCase, WithoutPixelsNothingIsTouched)
{
    using Form = typename TypeParam::Register;
    kernel::fromXYZToLabConvert<Form, float, float>(0, nullptr, nullptr);
    kernel::fromLabToXYZConvert<Form, float, float>(0, nullptr, nullptr);
}

TYPED_TEST(FloatLabEdgeCase, WhiteIsExactBothWays)
{
    using Form = typename TypeParam::Register;
    EXPECT_EQ(toLab<Form>({95.047F, 100.0F, 108.883F}), (Pixel{100.0F, 0.0F, 0.0F}));
    EXPECT_EQ(toXYZ<Form>({100.0F, 0.0F, 0.0F}), (Pixel{95.047F, 100.0F, 108.883F}));
}

// 116 * 0.13793103 lies beside 16: rounded it is 16, fused what is left shows.
TYPED_TEST(FloatLabEdgeCase, BlackHasALightnessOfZeroExceptFused)
{
    using Form = typename TypeParam::Register;
    const Pixel lab = toLab<Form>({0.0F, 0.0F, 0.0F});
    const bool bFused = std::is_same_v<Form, simd::fma3_avx2::Register>;
    EXPECT_EQ(lab, (Pixel{bFused ? -0x1p-24F : 0.0F, 0.0F, 0.0F}));
    expectDigits(toXYZ<Form>({0.0F, 0.0F, 0.0F}), {"-1.68356", "0", "-1.92863"});
    EXPECT_EQ(toXYZ<Form>({0.0F, 0.0F, 0.0F})[1], 0.0F);
}

TYPED_TEST(FloatLabEdgeCase, ColoursAboveTheThresholdComeBack)
{
    using Form = typename TypeParam::Register;
    const Pixel grey = toLab<Form>({50.0F, 50.0F, 50.0F});
    expectDigits(grey, {"76.06926", "6.77705", "4.43985"});
    expectDigits(toXYZ<Form>(grey), {"50.0000", "50.0000", "50.0000"});
    const Pixel green = toLab<Form>({20.0F, 30.0F, 10.0F});
    expectDigits(green, {"61.65422", "-37.32133", "43.65125"});
    expectDigits(toXYZ<Form>(green), {"20.0000", "30.0000", "10.0000"});
}

// The way back is not the inverse here, by what its linear branch takes.
TYPED_TEST(FloatLabEdgeCase, DarkColoursComeBackInYAlone)
{
    using Form = typename TypeParam::Register;
    const Pixel dark = toLab<Form>({0.5F, 0.5F, 0.5F});
    expectDigits(dark, {"4.51648", "1.01448", "0.63529"});
    expectDigits(toXYZ<Form>(dark), {"10.69896", "0.50000", "6.95437"});
}

TYPED_TEST(FloatLabEdgeCase, NegativeInputIsNotHeldAtZero)
{
    using Form = typename TypeParam::Register;
    expectDigits(toLab<Form>({-5.0F, -5.0F, -5.0F}), {"-45.16481", "-10.14477", "-6.35290"});
}

TYPED_TEST(FloatLabEdgeCase, TheTestOfTheInverseIsStrict)
{
    using Form = typename TypeParam::Register;
    expectDigits(toXYZ<Form>({8.0F, 0.0F, 0.0F}), {"-1.68356", "0.88565", "-1.92863"});
    expectDigits(toXYZ<Form>({8.1F, 0.0F, 0.0F}), {"0.85235", "0.89676", "0.97642"});
}

// Each side of the threshold has its branch; at the threshold itself both give the same float.
TYPED_TEST(FloatLabEdgeCase, TheBranchesMeetAtTheThreshold)
{
    using Form = typename TypeParam::Register;
    const ModelForm& form = FormTraits<Form>::g_form;
    const float threshold = std::bit_cast<float>(0x3C111AA7U);
    unsigned int nbAtThreshold = 0;
    unsigned int nbApart = 0;
    float y = 0.8856F;
    for (int i = 0; i < 2000; ++i)
    {
        y = std::nextafterf(y, 1.0F);
        const float ratio = y / 100.0F;
        const float linear = ratio / g_slope + 0.13793103F;
        const float root = modelPower(form, ratio, 0.33333334F);
        const float lightness = modelMulAdd(form, 116.0F, ratio > threshold ? root : linear, -16.0F);
        ASSERT_EQ(toLab<Form>({0.0F, y, 0.0F})[0], lightness) << y;
        nbAtThreshold += ratio == threshold ? 1U : 0U;
        nbApart += root != linear ? 1U : 0U;
    }
    EXPECT_GT(nbAtThreshold, 0U);
    // Else the test could not tell the branches apart.
    EXPECT_GT(nbApart, 100U);
}

// X and Z take a and b themselves below the threshold, Y takes fy.
TYPED_TEST(FloatLabEdgeCase, TheLinearBranchOfTheInverseTakesTheRawChannel)
{
    using Form = typename TypeParam::Register;
    expectDigits(toXYZ<Form>({50.0F, -40.0F, 80.0F}), {"11.1115", "18.41865", "1116.68"});
    // fx is 0.1479 and fz 0.1129: (5 - 0.13793103) * 0.12841856 times white.
    expectDigits(toXYZ<Form>({0.0F, 5.0F, 5.0F}), {"59.3454", "0", "67.9844"});
    // Far below: the same formula, with a as it is.
    expectDigits(toXYZ<Form>({0.0F, -1000.0F, 0.0F}), {"-12207.48", "0", "-1.92863"});
}

// The slope is one unit in the last place above the float nearest to 3 (6/29)^2, in both directions.
TYPED_TEST(FloatLabEdgeCase, TheSlopeIsOneUnitOff)
{
    using Form = typename TypeParam::Register;
    const ModelForm& form = FormTraits<Form>::g_form;
    ASSERT_EQ(static_cast<float>(3.0 * (6.0 / 29.0) * (6.0 / 29.0)), g_nearestSlope);
    unsigned int nbApart = 0;
    for (int i = 1; i < 800; ++i)
    {
        const float lightness = static_cast<float>(i) / 100.0F;
        const float difference = (lightness + 16.0F) / 116.0F - 0.13793103F;
        const float y = difference * g_slope * 100.0F;
        ASSERT_EQ(toXYZ<Form>({lightness, 0.0F, 0.0F})[1], y) << lightness;
        nbApart += y != difference * g_nearestSlope * 100.0F ? 1U : 0U;

        const float ratio = y / 100.0F;
        const float f = ratio / g_slope + 0.13793103F;
        ASSERT_EQ(toLab<Form>({0.0F, y, 0.0F})[0], modelMulAdd(form, 116.0F, f, -16.0F)) << y;
        nbApart += f != ratio / g_nearestSlope + 0.13793103F ? 1U : 0U;
    }
    EXPECT_GT(nbApart, 100U);
}

TYPED_TEST(FloatLabEdgeCase, ANaNStaysInItsChannels)
{
    using Form = typename TypeParam::Register;
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const Pixel noX = toLab<Form>({nan, 100.0F, 108.883F});
    EXPECT_EQ(noX[0], 100.0F);
    EXPECT_TRUE(std::isnan(noX[1]));
    EXPECT_EQ(noX[2], 0.0F);
    const Pixel noY = toLab<Form>({95.047F, nan, 108.883F});
    EXPECT_TRUE(std::isnan(noY[0]) && std::isnan(noY[1]) && std::isnan(noY[2]));
    const Pixel noB = toXYZ<Form>({100.0F, 0.0F, nan});
    EXPECT_EQ(noB[0], 95.047F);
    EXPECT_EQ(noB[1], 100.0F);
    EXPECT_TRUE(std::isnan(noB[2]));
}

TYPED_TEST(FloatLabEdgeCase, AnInfiniteSampleHasAnInfiniteRoot)
{
    using Form = typename TypeParam::Register;
    const float infinity = std::numeric_limits<float>::infinity();
    EXPECT_EQ(toLab<Form>({95.047F, infinity, 108.883F}), (Pixel{infinity, -infinity, infinity}));
    EXPECT_EQ(toLab<Form>({-infinity, 100.0F, 108.883F}), (Pixel{100.0F, -infinity, 0.0F}));
}

TYPED_TEST(IntegerLabEdgeCase, BytesHoldWholeUnitsAndNoNegativeChannel)
{
    using Form = typename TypeParam::Register;
    EXPECT_EQ((toLab<Form, float, unsigned char>({20.0F, 30.0F, 10.0F})), (Bytes{62, 0, 44}));
    EXPECT_EQ((toLab<Form, unsigned char, unsigned char>({20, 30, 10})), (Bytes{62, 0, 44}));
    EXPECT_EQ((toLab<Form, unsigned char, signed char>({20, 30, 10})), (std::array<signed char, 3>{62, -37, 44}));
    // L of black is no -1, not even where it is a little below 0.
    EXPECT_EQ((toLab<Form, unsigned char, short>({0, 0, 0})), (std::array<short, 3>{0, 0, 0}));
}

TYPED_TEST(IntegerLabEdgeCase, TheInverseReadsWholeUnits)
{
    using Form = typename TypeParam::Register;
    EXPECT_EQ((toXYZ<Form, unsigned char, unsigned char>({100, 0, 0})), (Bytes{95, 100, 109}));
    EXPECT_EQ((toXYZ<Form, signed char, short>({50, -40, 80})), (std::array<short, 3>{11, 18, 1117}));
    EXPECT_EQ((toXYZ<Form, signed char, signed char>({0, 0, 0})), (std::array<signed char, 3>{-2, 0, -2}));
}
} // namespace kovis::test
