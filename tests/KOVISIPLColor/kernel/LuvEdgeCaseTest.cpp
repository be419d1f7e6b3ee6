#include "KOVISIPLColor/kernel/KernelEdgeCase.h"

#include <cmath>
#include <limits>
#include <type_traits>

// Luv by literal value, in every form.

namespace kovis::test
{
namespace
{
namespace kernel = imaproc::color::kernel;

template <class Register, class Tin = float, class Tout = float>
std::array<Tout, 3> toLuv(std::array<Tin, 3> xyz)
{
    return pixelOf<Tin, Tout>(&kernel::fromXYZToLuvConvert<Register, Tin, Tout>, xyz);
}

template <class Register, class Tin = float, class Tout = float>
std::array<Tout, 3> toXYZ(std::array<Tin, 3> luv)
{
    return pixelOf<Tin, Tout>(&kernel::fromLuvToXYZConvert<Register, Tin, Tout>, luv);
}

/// What a NaN becomes in an integer.
template <class Register, class T>
constexpr T nanOf()
{
    constexpr bool bGreatest =
        std::is_same_v<Register, simd::generic::Register> || std::is_same_v<Register, simd::sse2::Register>;
    return bGreatest ? std::numeric_limits<T>::max() : std::numeric_limits<T>::min();
}

/// Calls check.operator()<T>() for each integer type of pixels.
template <class Check>
void forEachIntegerType(Check check)
{
    check.template operator()<signed char>();
    check.template operator()<unsigned char>();
    check.template operator()<short>();
    check.template operator()<unsigned short>();
    check.template operator()<int>();
    check.template operator()<unsigned int>();
}

constexpr float g_infinity = std::numeric_limits<float>::infinity();
} // namespace

template <class Tag>
class FloatLuvEdgeCase : public KernelEdgeCase<Tag>
{
};
TYPED_TEST_SUITE(FloatLuvEdgeCase, AllForms, FormNames);

template <class Tag>
class IntegerLuvEdgeCase : public KernelEdgeCase<Tag>
{
};
TYPED_TEST_SUITE(IntegerLuvEdgeCase, IntegerForms, FormNames);

TYPED_TEST(FloatLuvEdgeCase, WithoutPixelsNothingIsTouched)
{
    using Form = typename TypeParam::Register;
    kernel::fromXYZToLuvConvert<Form, float, float>(0, nullptr, nullptr);
    kernel::fromLuvToXYZConvert<Form, float, float>(0, nullptr, nullptr);
}

// Near white u' - 0.1978 and v' - 0.4683 cancel, so that a fused divisor shows in the fifth digit.
TYPED_TEST(FloatLuvEdgeCase, NearWhiteTheFusedFormDiffers)
{
    using Form = typename TypeParam::Register;
    const bool bFused = std::is_same_v<Form, simd::fma3_avx2::Register>;
    const Pixel luv = toLuv<Form>({0.3F, 0.329024F, 0.35F});
    EXPECT_EQ(luv[0], 100.0F);
    expectDigits(luv, {"100", bFused ? "-8.94417" : "-8.94419", bFused ? "3.67784" : "3.67776"});
    expectDigits(toXYZ<Form>(luv), {"0.300000", "0.329024", "0.35000"});
}

// White is at 0.329024: on the scale of Lab lightness is far beyond 100.
TYPED_TEST(FloatLuvEdgeCase, ColoursComeBack)
{
    using Form = typename TypeParam::Register;
    const Pixel white = toLuv<Form>({95.047F, 100.0F, 108.883F});
    expectDigits(white, {"763.918", "0.39541", "0.36019"});
    expectDigits(toXYZ<Form>(white), {"95.047", "100.000", "108.883"});
    const Pixel green = toLuv<Form>({20.0F, 30.0F, 10.0F});
    expectDigits(green, {"506.103", "-248.699", "471.738"});
    expectDigits(toXYZ<Form>(green), {"20.0000", "30.0000", "10.0000"});
    const Pixel dark = toLuv<Form>({0.001F, 0.001F, 0.001F});
    expectDigits(dark, {"2.74538", "0.45420", "0.19216"});
    expectDigits(toXYZ<Form>(dark), {"0.001000", "0.001000", "0.001000"});
}

// Nothing guards the divisions.
TYPED_TEST(FloatLuvEdgeCase, BlackHasNoChroma)
{
    using Form = typename TypeParam::Register;
    const Pixel luv = toLuv<Form>({0.0F, 0.0F, 0.0F});
    EXPECT_EQ(luv[0], 0.0F);
    EXPECT_TRUE(std::isnan(luv[1]));
    EXPECT_TRUE(std::isnan(luv[2]));
    for (float chroma : {0.0F, 10.0F})
    {
        const Pixel xyz = toXYZ<Form>({0.0F, chroma, chroma});
        EXPECT_TRUE(std::isnan(xyz[0])) << chroma;
        EXPECT_EQ(xyz[1], 0.0F) << chroma;
        EXPECT_TRUE(std::isnan(xyz[2])) << chroma;
    }
}

TYPED_TEST(FloatLuvEdgeCase, LightnessEightTakesTheLinearBranch)
{
    using Form = typename TypeParam::Register;
    expectDigits(toXYZ<Form>({8.0F, 0.0F, 0.0F}), {"0.00276931", "0.00291399", "0.00317440"});
    EXPECT_EQ(toXYZ<Form>({8.0F, 0.0F, 0.0F})[1], 8.0F * modelLuvConstants(FormTraits<Form>::g_form).m_inverseSlope * 0.329024F);
    expectDigits({toXYZ<Form>({8.5F, 0.0F, 0.0F})[1], 0.0F, 0.0F}, {"0.00309993", "0", "0"});
    expectDigits(toXYZ<Form>({100.0F, 0.0F, 0.0F}), {"0.312689", "0.329024", "0.358427"});
}

// The generic form holds (3/29)^3 and (6/29)^3 as constants, the others compute them one unit in the last place below.
TYPED_TEST(FloatLuvEdgeCase, TheCubesOfTheVectorFormsLieOneUnitBelow)
{
    using Form = typename TypeParam::Register;
    const bool bGeneric = std::is_same_v<Form, simd::generic::Register>;
    const float inverseSlope = bGeneric ? 0x1.22354Ep-10F + 0x1p-33F : 0x1.22354Ep-10F;
    ASSERT_EQ(inverseSlope, bGeneric ? 0.0011070566F : 0.00110705651F);
    EXPECT_EQ(toXYZ<Form>({1.0F, 0.0F, 0.0F})[1], inverseSlope * 0.329024F);
    // L of 903.296387 times the ratio on the linear branch.
    EXPECT_EQ(toLuv<Form>({0.001F, 0.001F, 0.001F})[0], (0.001F / 0.329024F) * 903.296387F);
    // Which branch a ratio of 0x3C111AA8 takes: the linear one where that is the threshold itself.
    unsigned int nbBetween = 0;
    float y = 0.0029F;
    for (int i = 0; i < 200000 && nbBetween < 8; ++i)
    {
        y = std::nextafterf(y, 1.0F);
        const float ratio = y / 0.329024F;
        if (ratio == 0x1.22355p-7F)
        {
            ++nbBetween;
            const ModelForm& form = FormTraits<Form>::g_form;
            const float root = modelMulAdd(form, modelPower(form, ratio, 0.33333334F), 116.0F, -16.0F);
            const float linear = ratio * 903.296387F;
            EXPECT_EQ(toLuv<Form>({0.0F, y, 0.0F})[0], bGeneric ? linear : root);
            EXPECT_NE(linear, root);
        }
    }
    EXPECT_GT(nbBetween, 0U);
}

TYPED_TEST(FloatLuvEdgeCase, ANaNInYHasTheLightnessOfARootOfZero)
{
    using Form = typename TypeParam::Register;
    const Pixel luv = toLuv<Form>({1.0F, std::numeric_limits<float>::quiet_NaN(), 1.0F});
    EXPECT_EQ(luv[0], -16.0F);
    EXPECT_TRUE(std::isnan(luv[1]));
    EXPECT_TRUE(std::isnan(luv[2]));
    // Nothing is held at 0 on the way back.
    EXPECT_TRUE(std::isnan(toXYZ<Form>({std::numeric_limits<float>::quiet_NaN(), 0.0F, 0.0F})[1]));
}

TYPED_TEST(FloatLuvEdgeCase, DivisorsOfZeroGiveInfinities)
{
    using Form = typename TypeParam::Register;
    // 15 Y + X + 3 Z is 0.
    const Pixel luv = toLuv<Form>({-15.0F, 1.0F, 0.0F});
    EXPECT_GT(luv[0], 0.0F);
    EXPECT_EQ(luv[1], -g_infinity);
    EXPECT_EQ(luv[2], g_infinity);
}

TYPED_TEST(IntegerLuvEdgeCase, BlackStoresWhatTheFormMakesOfANaN)
{
    using Form = typename TypeParam::Register;
    forEachIntegerType(
        []<class T>()
        {
            constexpr T nan = nanOf<Form, T>();
            EXPECT_EQ((toLuv<Form, float, T>({0.0F, 0.0F, 0.0F})), (std::array<T, 3>{0, nan, nan})) << typeName<T>();
            EXPECT_EQ((toLuv<Form, T, T>({0, 0, 0})), (std::array<T, 3>{0, nan, nan})) << typeName<T>();
            EXPECT_EQ((toXYZ<Form, float, T>({0.0F, 0.0F, 0.0F})), (std::array<T, 3>{nan, 0, nan})) << typeName<T>();
            EXPECT_EQ((toXYZ<Form, T, T>({0, 0, 0})), (std::array<T, 3>{nan, 0, nan})) << typeName<T>();
            EXPECT_EQ((toXYZ<Form, T, T>({0, 10, 10})), (std::array<T, 3>{nan, 0, nan})) << typeName<T>();
        });
    const bool bGreatest = nanOf<Form, unsigned char>() != 0;
    EXPECT_EQ((toLuv<Form, unsigned char, unsigned char>({0, 0, 0})), (bGreatest ? Bytes{0, 255, 255} : Bytes{0, 0, 0}));
}

TYPED_TEST(IntegerLuvEdgeCase, InfinitiesStoreTheLimits)
{
    using Form = typename TypeParam::Register;
    // The v that makes v' exactly 0, so that X and Z are quotients by 0.
    float v = -0.4683F * 13.0F;
    for (int i = 0; i < 4 && v / 13.0F != -0.4683F; ++i)
    {
        v = std::nextafterf(v, i % 2 == 0 ? 0.0F : -10.0F);
    }
    ASSERT_EQ(v / 13.0F, -0.4683F);
    EXPECT_EQ((toXYZ<Form, float, float>({1.0F, 0.0F, v})[0]), g_infinity);
    EXPECT_EQ((toXYZ<Form, float, float>({1.0F, 1000.0F, v})[2]), -g_infinity);
    forEachIntegerType(
        [v]<class T>()
        {
            using Limits = std::numeric_limits<T>;
            EXPECT_EQ((toXYZ<Form, float, T>({1.0F, 0.0F, v})), (std::array<T, 3>{Limits::max(), 0, Limits::max()}))
                << typeName<T>();
            EXPECT_EQ((toXYZ<Form, float, T>({1.0F, 1000.0F, v})), (std::array<T, 3>{Limits::max(), 0, Limits::min()}))
                << typeName<T>();
            const std::array<T, 3> luv = toLuv<Form, float, T>({-15.0F, 1.0F, 0.0F});
            EXPECT_EQ(luv[1], Limits::min()) << typeName<T>();
            EXPECT_EQ(luv[2], Limits::max()) << typeName<T>();
        });
}

TYPED_TEST(IntegerLuvEdgeCase, WholeNumbersOnTheScaleOfALargeLightness)
{
    using Form = typename TypeParam::Register;
    EXPECT_EQ((toLuv<Form, unsigned char, short>({20, 30, 10})), (std::array<short, 3>{506, -249, 472}));
    EXPECT_EQ((toLuv<Form, unsigned char, unsigned char>({20, 30, 10})), (Bytes{255, 0, 255}));
    EXPECT_EQ((toXYZ<Form, short, short>({506, -249, 472})), (std::array<short, 3>{20, 30, 10}));
}
} // namespace kovis::test
