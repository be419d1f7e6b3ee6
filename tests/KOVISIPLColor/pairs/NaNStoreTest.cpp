#include "KOVISIPLColor/ColorForms.h"
#include "KOVISIPLColor/pairs/ConversionRun.h"

#include <gtest/gtest.h>

#include <limits>
#include <tuple>

// What NaN and infinity become in integer images, through whole conversions. Black has no chroma in Luv: 0 / 0.

namespace kovis::test
{
namespace
{
using namespace image;

constexpr unsigned long g_sizeX = 35;
constexpr unsigned long g_nbPixels = 70;
constexpr float g_infinity = std::numeric_limits<float>::infinity();

template <class T>
ModelPlanes<T> makePlanesOf(T first, T second, T third)
{
    return {std::vector<T>(g_nbPixels, first), std::vector<T>(g_nbPixels, second), std::vector<T>(g_nbPixels, third)};
}

template <class Tin, class Tout>
void expectStored(eColorGeometryType from, eColorGeometryType to, const ModelPlanes<Tin>& samples,
                  const ModelPlanes<Tout>& expected)
{
    SCOPED_TRACE(std::string(getColorGeometryTypeName(from)) + " to " + getColorGeometryTypeName(to) + ", " +
                 getElementTypeName(BufferTypeOf<Tin>::g_value) + " to " + getElementTypeName(BufferTypeOf<Tout>::g_value));
    const std::vector<float> noMatrix;
    expectConversionInWays<Tin, Tout>(g_runWays, {from, 3}, {to, 3}, noMatrix, g_sizeX, samples, expected);
}

template <class T>
void expectStores(bool bNaNIsGreatest)
{
    using Limits = std::numeric_limits<T>;
    const T zero = 0;
    const T nan = bNaNIsGreatest ? Limits::max() : Limits::min();

    // one link
    expectStored(eCGT_XYZ, eCGT_CieLuv, makePlanesOf(0.0F, 0.0F, 0.0F), makePlanesOf(zero, nan, nan));
    expectStored(eCGT_XYZ, eCGT_CieLuv, makePlanesOf(zero, zero, zero), makePlanesOf(zero, nan, nan));
    expectStored(eCGT_CieLuv, eCGT_XYZ, makePlanesOf(0.0F, 0.0F, 0.0F), makePlanesOf(nan, zero, nan));
    expectStored(eCGT_CieLuv, eCGT_XYZ, makePlanesOf(zero, zero, zero), makePlanesOf(nan, zero, nan));
    expectStored(eCGT_CieLuv, eCGT_XYZ, makePlanesOf<T>(0, 10, 10), makePlanesOf(nan, zero, nan));

    // a link before it, and one behind it: the NaN goes on as a float
    expectStored(eCGT_Rgb, eCGT_CieLuv, makePlanesOf(zero, zero, zero), makePlanesOf(zero, nan, nan));
    expectStored(eCGT_CieLab, eCGT_CieLuv, makePlanesOf<T>(0, 0, 0),
                 makePlanesOf(zero, zero, zero)); // Lab's black is not quite 0
    expectStored(eCGT_CieLuv, eCGT_Rgb, makePlanesOf(zero, zero, zero), makePlanesOf(nan, nan, nan));

    // infinities have the limit of their sign: L of an infinite Y, a below it, b above
    expectStored(eCGT_XYZ, eCGT_CieLab, makePlanesOf(50.0F, g_infinity, 50.0F),
                 makePlanesOf(Limits::max(), Limits::min(), Limits::max()));
    expectStored(eCGT_XYZ, eCGT_CieLab, makePlanesOf(50.0F, -g_infinity, 50.0F),
                 makePlanesOf(Limits::min(), Limits::max(), Limits::min()));
    // an infinite L has no chroma, and infinite red, green and blue neither
    expectStored(eCGT_XYZ, eCGT_CieLuv, makePlanesOf(g_infinity, g_infinity, g_infinity), makePlanesOf(Limits::max(), nan, nan));
    expectStored(eCGT_Rgb, eCGT_CieLuv, makePlanesOf(g_infinity, g_infinity, g_infinity), makePlanesOf(Limits::max(), nan, nan));
}

class NaNStore : public testing::TestWithParam<ColorForm>
{
};

TEST_P(NaNStore, IsThatOfTheForm)
{
    const ColorForm& form = GetParam();
    if (!isAvailable(form))
    {
        GTEST_SKIP() << "this processor cannot run " << form.m_form->m_name;
    }
    const ForcedForm forced(form);
    const bool bNaNIsGreatest = form.m_form == &g_genericForm || form.m_form == &g_sse2Form;
    expectStores<signed char>(bNaNIsGreatest);
    expectStores<unsigned char>(bNaNIsGreatest);
    expectStores<short>(bNaNIsGreatest);
    expectStores<unsigned short>(bNaNIsGreatest);
    expectStores<int>(bNaNIsGreatest);
    expectStores<unsigned int>(bNaNIsGreatest);
}

INSTANTIATE_TEST_SUITE_P(Forms, NaNStore, testing::Values(g_colorForms[0], g_colorForms[1], g_colorForms[3], g_colorForms[4]),
                         [](const testing::TestParamInfo<ColorForm>& form) { return std::string(form.param.m_form->m_name); });

// In float nothing is limited: what black becomes in Luv, and what that becomes in XYZ, is a NaN.
TEST(NaNStoreOfFloat, StaysWhatItIs)
{
    const float nan = std::numeric_limits<float>::quiet_NaN();
    for (const ColorForm& form : g_colorForms)
    {
        if (isAvailable(form))
        {
            const ForcedForm forced(form);
            expectStored(eCGT_XYZ, eCGT_CieLuv, makePlanesOf(0.0F, 0.0F, 0.0F), makePlanesOf(0.0F, nan, nan));
            expectStored(eCGT_CieLuv, eCGT_XYZ, makePlanesOf(0.0F, nan, nan), makePlanesOf(nan, 0.0F, nan));
            expectStored(eCGT_CieLuv, eCGT_XYZ, makePlanesOf(0.0F, 0.0F, 0.0F), makePlanesOf(nan, 0.0F, nan));
        }
    }
}
} // namespace
} // namespace kovis::test
