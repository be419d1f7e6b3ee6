#include "KOVISIPLColor/kernel/KernelEdgeCase.h"

#include <cmath>
#include <limits>

// HLS by literal value, in every form.

namespace kovis::test
{
namespace
{
namespace kernel = imaproc::color::kernel;

template <class Register, class Tin = float, class Tout = float>
std::array<Tout, 3> toHLS(Tin r, Tin g, Tin b)
{
    return pixelOf<Tin, Tout>(&kernel::fromRGBToHLSConvert<Register, Tin, Tout>, {r, g, b});
}

template <class Register>
Pixel toRGB(const Pixel& hls)
{
    return pixelOf<float, float>(&kernel::fromHLSToRGBConvert<Register, float, float>, hls);
}
} // namespace

template <class Tag>
class FloatHLSEdgeCase : public KernelEdgeCase<Tag>
{
};
TYPED_TEST_SUITE(FloatHLSEdgeCase, AllForms, FormNames);

template <class Tag>
class IntegerHLSEdgeCase : public KernelEdgeCase<Tag>
{
};
TYPED_TEST_SUITE(IntegerHLSEdgeCase, IntegerForms, FormNames);

TYPED_TEST(FloatHLSEdgeCase, WithoutPixelsNothingIsTouched)
{
    using Form = typename TypeParam::Register;
    kernel::fromRGBToHLSConvert<Form, float, float>(0, nullptr, nullptr);
    kernel::fromHLSToRGBConvert<Form, float, float>(0, nullptr, nullptr);
}

TYPED_TEST(FloatHLSEdgeCase, ColoursOnTheScaleOfOneComeBackExactly)
{
    using Form = typename TypeParam::Register;
    EXPECT_EQ((toHLS<Form>(1.0F, 0.0F, 0.0F)), (Pixel{0.0F, 0.5F, 1.0F}));
    EXPECT_EQ((toRGB<Form>({0.0F, 0.5F, 1.0F})), (Pixel{1.0F, 0.0F, 0.0F}));
    EXPECT_EQ((toHLS<Form>(0.5F, 0.25F, 0.75F)), (Pixel{270.0F, 0.5F, 0.5F}));
    EXPECT_EQ((toRGB<Form>({270.0F, 0.5F, 0.5F})), (Pixel{0.5F, 0.25F, 0.75F}));
}

TYPED_TEST(FloatHLSEdgeCase, GreysHaveNeitherHueNorSaturation)
{
    using Form = typename TypeParam::Register;
    EXPECT_EQ((toHLS<Form>(0.2F, 0.2F, 0.2F)), (Pixel{0.0F, 0.2F, 0.0F}));
    EXPECT_EQ((toHLS<Form>(0.0F, 0.0F, 0.0F)), (Pixel{0.0F, 0.0F, 0.0F}));
    EXPECT_EQ((toHLS<Form>(1.0F, 1.0F, 1.0F)), (Pixel{0.0F, 1.0F, 0.0F}));
}

// The saturation reads lightness as 0 to 1 whatever the samples mean: above that it is negative and small.
TYPED_TEST(FloatHLSEdgeCase, ColoursOnAnyOtherScaleHaveANegativeSaturation)
{
    using Form = typename TypeParam::Register;
    const Pixel red = toHLS<Form>(255.0F, 0.0F, 0.0F);
    expectDigits(red, {"0", "127.5", "-1.0079051"});
    EXPECT_EQ(toRGB<Form>(red), (Pixel{255.0F, 0.0F, 0.0F}));
    const Pixel blue = toHLS<Form>(10.0F, 20.0F, 30.0F);
    expectDigits(blue, {"210", "20", "-0.5263158"});
    EXPECT_EQ(toRGB<Form>(blue), (Pixel{10.0F, 20.0F, 30.0F}));
}

// A lightness of exactly 1 has no room for a saturation, so the colour is lost.
TYPED_TEST(FloatHLSEdgeCase, TheGuardOfLightnessOneLosesTheSaturation)
{
    using Form = typename TypeParam::Register;
    EXPECT_EQ((toHLS<Form>(2.0F, 0.0F, 0.0F)), (Pixel{0.0F, 1.0F, 0.0F}));
    EXPECT_EQ((toRGB<Form>({0.0F, 1.0F, 0.0F})), (Pixel{1.0F, 1.0F, 1.0F}));
    // Exactly 0 as well, though the channels are not.
    EXPECT_EQ((toHLS<Form>(0.5F, -0.5F, -0.5F)), (Pixel{0.0F, 0.0F, 0.0F}));
}

// ... but only exactly 1 is guarded.
TYPED_TEST(FloatHLSEdgeCase, BesideLightnessOneTheSaturationIsVeryLarge)
{
    using Form = typename TypeParam::Register;
    const float below = std::nextafterf(1.0F, 0.0F);
    const Pixel beside = toHLS<Form>(1.5F, 1.0F, 2.0F * below - 1.5F);
    EXPECT_EQ(beside[1], below);
    // The spread is 2^-23.
    EXPECT_EQ(beside[2], (1.5F - (2.0F * below - 1.5F)) * 8388608.0F);
}

TYPED_TEST(FloatHLSEdgeCase, AnyHueIsAccepted)
{
    using Form = typename TypeParam::Register;
    EXPECT_EQ(toRGB<Form>({360.0F, 0.5F, 1.0F}), toRGB<Form>({0.0F, 0.5F, 1.0F}));
    EXPECT_EQ(toRGB<Form>({-30.0F, 0.25F, 0.5F}), toRGB<Form>({330.0F, 0.25F, 0.5F}));
    EXPECT_EQ(toRGB<Form>({std::numeric_limits<float>::quiet_NaN(), 0.5F, 1.0F}), (Pixel{1.0F, 0.0F, 0.0F}));
}

TYPED_TEST(FloatHLSEdgeCase, ThePureColours)
{
    using Form = typename TypeParam::Register;
    EXPECT_EQ(toRGB<Form>({0.0F, 0.5F, 1.0F}), (Pixel{1.0F, 0.0F, 0.0F}));
    EXPECT_EQ(toRGB<Form>({120.0F, 0.5F, 1.0F}), (Pixel{0.0F, 1.0F, 0.0F}));
    EXPECT_EQ(toRGB<Form>({240.0F, 0.5F, 1.0F}), (Pixel{0.0F, 0.0F, 1.0F}));
}

TYPED_TEST(IntegerHLSEdgeCase, BytesRoundTheLightnessAndLoseTheSaturation)
{
    using Form = typename TypeParam::Register;
    EXPECT_EQ((toHLS<Form, unsigned char, unsigned char>(255, 0, 0)), (Bytes{0, 128, 0}));
    EXPECT_EQ((toHLS<Form, float, unsigned char>(255.0F, 0.0F, 0.0F)), (Bytes{0, 128, 0}));
    // A signed target rounds it, here to -1.
    EXPECT_EQ((toHLS<Form, unsigned char, short>(255, 0, 0)), (std::array<short, 3>{0, 128, -1}));
}
} // namespace kovis::test
