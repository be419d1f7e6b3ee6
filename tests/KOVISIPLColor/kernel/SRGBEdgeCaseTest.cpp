#include "KOVISIPLColor/kernel/KernelEdgeCase.h"

#include <cmath>
#include <limits>
#include <vector>

// The sRGB curve and its matrix by literal value, in every form.

namespace kovis::test
{
namespace
{
namespace kernel = imaproc::color::kernel;

/// One sample through the curve, a coefficient and an offset.
template <class Register, class Tin = float, class Tout = float>
Tout curveOf(Tin sample, float factor = 1.0F, float offset = 0.0F)
{
    const std::vector<Tin> from(g_room, sample);
    std::vector<Tout> to(g_room);
    const float matrix[] = {factor, offset};
    const Tin* in[] = {from.data()};
    Tout* out[] = {to.data()};
    kernel::sRGBtoXYZConvert<Register, Tin, Tout>(1, 1, matrix, 32, in, out);
    EXPECT_EQ(std::memcmp(&to[0], &to[31], sizeof(Tout)), 0) << "lanes differ";
    return to[0];
}

/// Three samples through a 3 x 3 matrix, on planes of their own or in place.
template <class Register>
Pixel matrixOf(const Pixel& rgb, const float* matrix, bool bInPlace)
{
    std::vector<std::vector<float>> from;
    std::vector<std::vector<float>> to(3, std::vector<float>(g_room));
    const float* in[3];
    float* out[3];
    for (std::size_t c = 0; c < 3; ++c)
    {
        from.emplace_back(g_room, rgb[c]);
    }
    for (std::size_t c = 0; c < 3; ++c)
    {
        in[c] = from[c].data();
        out[c] = bInPlace ? from[c].data() : to[c].data();
    }
    kernel::sRGBtoXYZConvert<Register, float, float>(3, 3, matrix, 32, in, out);
    return {out[0][31], out[1][31], out[2][31]};
}
} // namespace

template <class Tag>
class FloatSRGBEdgeCase : public KernelEdgeCase<Tag>
{
};
TYPED_TEST_SUITE(FloatSRGBEdgeCase, AllForms, FormNames);

template <class Tag>
class IntegerSRGBEdgeCase : public KernelEdgeCase<Tag>
{
};
TYPED_TEST_SUITE(IntegerSRGBEdgeCase, IntegerForms, FormNames);

TYPED_TEST(FloatSRGBEdgeCase, TheCurve)
{
    using Form = typename TypeParam::Register;
    const std::pair<float, const char*> table[] = {{1.0F, "0.0303527"},  {10.0F, "0.303527"}, {11.0F, "0.334654"},
                                                   {128.0F, "21.5861"},  {200.0F, "57.7581"}, {1000.0F, "2415.54"},
                                                   {-5.0F, "-0.151763"}, {0.5F, "0.0151763"}};
    for (const auto& [sample, digits] : table)
    {
        EXPECT_EQ(printedLike(curveOf<Form>(sample), digits), digits) << sample;
    }
    EXPECT_EQ(curveOf<Form>(0.0F), 0.0F);
    // White: the base of the power is exactly 1.
    EXPECT_EQ(curveOf<Form>(255.0F), 100.0F);
}

TYPED_TEST(IntegerSRGBEdgeCase, EveryPixelTypeIsReadOnTheScaleOf255)
{
    using Form = typename TypeParam::Register;
    EXPECT_EQ((curveOf<Form, unsigned char, float>(255)), 100.0F);
    EXPECT_EQ((curveOf<Form, unsigned short, float>(255)), 100.0F);
    EXPECT_EQ((curveOf<Form, int, float>(255)), 100.0F);
    EXPECT_EQ((curveOf<Form, unsigned int, float>(1)), (curveOf<Form>(1.0F)));
    EXPECT_EQ((curveOf<Form, short, float>(-5)), (curveOf<Form>(-5.0F)));
    EXPECT_EQ((curveOf<Form, unsigned short, int>(65535)), (curveOf<Form, float, int>(65535.0F)));
    EXPECT_EQ((curveOf<Form, unsigned char, unsigned char>(128)), 22);
}

TYPED_TEST(FloatSRGBEdgeCase, WithoutPixelsOrRowsNothingIsTouched)
{
    using Form = typename TypeParam::Register;
    kernel::sRGBtoXYZConvert<Form, float, float>(3, 3, nullptr, 0, nullptr, nullptr);
    kernel::sRGBtoXYZConvert<Form, float, float>(3, 0, nullptr, 1, nullptr, nullptr);
}

TYPED_TEST(FloatSRGBEdgeCase, ZerosGiveEachRowsOffset)
{
    using Form = typename TypeParam::Register;
    const float matrix[] = {1.0F, 2.0F, 3.0F, 0.0F, 4.0F, 5.0F, 6.0F, -7.5F, 8.0F, 9.0F, 10.0F, 12.25F};
    EXPECT_EQ(matrixOf<Form>({0.0F, 0.0F, 0.0F}, matrix, false), (Pixel{0.0F, -7.5F, 12.25F}));

    std::vector<float> first(g_room);
    std::vector<float> second(g_room);
    float* out[] = {first.data(), second.data()};
    const float offsets[] = {3.5F, -2.0F};
    kernel::sRGBtoXYZConvert<Form, float, float>(0, 2, offsets, 32, nullptr, out);
    EXPECT_EQ(first[31], 3.5F);
    EXPECT_EQ(second[0], -2.0F);
}

// Below -14.025 the base of the power is negative and the power a NaN, which the branch drops.
TYPED_TEST(FloatSRGBEdgeCase, NegativeSamplesStayOnTheLinearBranch)
{
    using Form = typename TypeParam::Register;
    for (float sample : {-14.025F, -15.0F, -1000.0F, -1e30F})
    {
        EXPECT_EQ(curveOf<Form>(sample), sample / 255.0F / 12.92F * 100.0F) << sample;
    }
    EXPECT_EQ(curveOf<Form>(-std::numeric_limits<float>::infinity()), -std::numeric_limits<float>::infinity());
    EXPECT_EQ(curveOf<Form>(std::numeric_limits<float>::infinity()), std::numeric_limits<float>::infinity());
    EXPECT_TRUE(std::isnan(curveOf<Form>(std::numeric_limits<float>::quiet_NaN())));
}

// The test is made on the scaled sample and is strict: exactly 0.04045 is linear, the float above it is not.
TYPED_TEST(FloatSRGBEdgeCase, TheBranchPointItselfIsLinear)
{
    using Form = typename TypeParam::Register;
    unsigned int nbAt = 0;
    unsigned int nbAbove = 0;
    float sample = 0.04045F * 255.0F;
    for (int i = 0; i < 8; ++i)
    {
        sample = std::nextafterf(sample, 0.0F);
    }
    for (int i = 0; i < 16; ++i, sample = std::nextafterf(sample, 20.0F))
    {
        const float v = sample / 255.0F;
        const float linear = v / 12.92F * 100.0F;
        if (v == 0.04045F)
        {
            ++nbAt;
            EXPECT_EQ(curveOf<Form>(sample), linear);
            // The two branches do not meet: 0.31308049 and 0.31308072.
            EXPECT_NE(modelPower(FormTraits<Form>::g_form, (v + 0.055F) / 1.055F, 2.4F) * 100.0F, linear);
        }
        if (v == std::nextafterf(0.04045F, 1.0F))
        {
            ++nbAbove;
            const float curve = modelPower(FormTraits<Form>::g_form, (v + 0.055F) / 1.055F, 2.4F) * 100.0F;
            EXPECT_EQ(curveOf<Form>(sample), curve);
            EXPECT_NE(curve, linear);
        }
    }
    EXPECT_GT(nbAt, 0U);
    EXPECT_GT(nbAbove, 0U);
}

// In place the result of a row is a sample of the next, through the curve again. A kernel that kept the samples, or the curve's
// results, from row to row would give what separate planes give.
TYPED_TEST(FloatSRGBEdgeCase, InPlaceEachRowReadsWhatTheRowsBeforeItWrote)
{
    using Form = typename TypeParam::Register;
    const float matrix[] = {1.0F, 0.0F, 0.0F, 0.0F, 1.0F, 1.0F, 0.0F, 0.0F, 1.0F, 1.0F, 1.0F, 0.0F};
    const Pixel rgb{255.0F, 0.0F, 128.0F};
    const auto curve = [](float sample) { return modelSRGBCurve(FormTraits<Form>::g_form, sample); };
    const auto sumOf = [](float a, float b) { return a + b; };

    const float x = 100.0F;
    EXPECT_EQ(matrixOf<Form>(rgb, matrix, false), (Pixel{x, 100.0F, sumOf(100.0F, curve(128.0F))}));
    const float y = sumOf(curve(x), curve(0.0F));
    const float z = sumOf(sumOf(curve(x), curve(y)), curve(128.0F));
    EXPECT_EQ(matrixOf<Form>(rgb, matrix, true), (Pixel{x, y, z}));
    expectDigits({x, y, 0.0F}, {"100", "12.7438", "0"});
}

// The coefficient comes after the scale of 100, and only the last step is fused.
TYPED_TEST(FloatSRGBEdgeCase, TheSumIsFusedInTheFMA3FormAlone)
{
    using Form = typename TypeParam::Register;
    const float scaled = curveOf<Form>(200.0F);
    const float factor = 0.4124564F;
    const float offset = -std::nextafterf(scaled * factor, 0.0F);
    const bool bFused = std::is_same_v<Form, simd::fma3_avx2::Register>;
    const float product = scaled * factor;
    EXPECT_EQ(curveOf<Form>(200.0F, factor, offset), bFused ? std::fma(scaled, factor, offset) : product + offset);
    EXPECT_NE(std::fma(scaled, factor, offset), product + offset);
}
} // namespace kovis::test
