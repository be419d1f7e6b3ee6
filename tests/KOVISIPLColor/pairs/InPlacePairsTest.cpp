#include "KOVISIPLColor/ColorForms.h"
#include "KOVISIPLColor/pairs/ConversionRun.h"
#include "KOVISIPLColor/pairs/SpaceSamples.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>

// The eight pairs of spaces that are two hubs apart. Their middle link, between RGB and XYZ, reads and writes the same planes: a
// row takes what the rows before it wrote for samples. Whoever gives that link a copy of its source gets other numbers.

namespace kovis::test
{
namespace
{
using namespace image;

constexpr unsigned long g_sizeX = 71;
constexpr unsigned long g_sizeY = 9;

/// The part of the pixels that differ in any channel.
template <class T>
double getShareOfOthers(const ModelPlanes<T>& some, const ModelPlanes<T>& others)
{
    std::size_t nbOthers = 0;
    for (std::size_t i = 0; i < some[0].size(); ++i)
    {
        bool bSame = true;
        for (std::size_t c = 0; c < some.size(); ++c)
        {
            bSame = bSame && sameValue(some[c][i], others[c][i]);
        }
        nbOthers += bSame ? 0U : 1U;
    }
    return static_cast<double>(nbOthers) / static_cast<double>(some[0].size());
}

template <class Tin, class Tout>
void expectInPlace(const ModelForm& form, const ModelSpace& from, const ModelSpace& to)
{
    SCOPED_TRACE(std::string(getElementTypeName(BufferTypeOf<Tin>::g_value)) + " to " +
                 getElementTypeName(BufferTypeOf<Tout>::g_value));
    const ModelPlanes<Tin> samples = makeUsualPixels<Tin>(from, g_sizeX * g_sizeY);
    const auto expected = modelConversion<Tin, Tout>(form, from, to, {}, samples, MiddleLink::inPlace);
    const auto copied = modelConversion<Tin, Tout>(form, from, to, {}, samples, MiddleLink::fromPrivateCopy);
    // nearly all real numbers tell the two apart, and most whole ones
    const double leastShare = std::is_same_v<Tout, float> ? 0.99 : 0.5;
    EXPECT_GT(getShareOfOthers(expected, copied), leastShare);
    expectConversionInWays<Tin, Tout>(g_runWays, from, to, {}, g_sizeX, samples, expected);
}
} // namespace

/// A form and both ends.
class InPlacePairs
    : public testing::TestWithParam<std::tuple<const ColorForm*, std::tuple<eColorGeometryType, eColorGeometryType>>>
{
};

TEST_P(InPlacePairs, ReadBackTheRowsThatTheyWrote)
{
    const ColorForm& form = *std::get<0>(GetParam());
    const auto& [from, to] = std::get<1>(GetParam());
    if (!isAvailable(form))
    {
        GTEST_SKIP() << "this processor cannot run " << form.m_form->m_name;
    }
    const ForcedForm forced(form);
    expectInPlace<float, float>(*form.m_form, {from, 3}, {to, 3});
    if (!isForFloatAlone(form) && !HasFatalFailure())
    {
        expectInPlace<short, float>(*form.m_form, {from, 3}, {to, 3});
        expectInPlace<float, unsigned char>(*form.m_form, {from, 3}, {to, 3});
        expectInPlace<short, unsigned int>(*form.m_form, {from, 3}, {to, 3});
    }
}

const auto g_formsOfPairs =
    testing::Values(&g_colorForms[0], &g_colorForms[1], &g_colorForms[2], &g_colorForms[3], &g_colorForms[4]);
const auto g_byHue = testing::Values(eCGT_HLS, eCGT_HSV);
const auto g_byLightness = testing::Values(eCGT_CieLab, eCGT_CieLuv);

std::string nameOfPair(const testing::TestParamInfo<InPlacePairs::ParamType>& info)
{
    const auto& [from, to] = std::get<1>(info.param);
    return std::string(std::get<0>(info.param)->m_form->m_name) + "_" + getColorGeometryTypeName(from) + "_to_" +
           getColorGeometryTypeName(to);
}

INSTANTIATE_TEST_SUITE_P(ByTheCurve, InPlacePairs, testing::Combine(g_formsOfPairs, testing::Combine(g_byHue, g_byLightness)),
                         &nameOfPair);
INSTANTIATE_TEST_SUITE_P(ByTheMatrix, InPlacePairs, testing::Combine(g_formsOfPairs, testing::Combine(g_byLightness, g_byHue)),
                         &nameOfPair);

namespace
{
void expectPixel(const ModelSpace& from, const ModelPixel& source, const ModelSpace& to, const ModelPixel& expected)
{
    const ModelPlanes<float> samples{{source[0]}, {source[1]}, {source[2]}};
    const ImagePtr in = makeSpaceImage<float>(1, 1, from, false, samples);
    const ModelPlanes<float> found = getPlanes<float>(*imaproc::color::colorConvertImg(in, to.m_geometry));
    for (std::size_t c = 0; c < 3; ++c)
    {
        EXPECT_NEAR(found[c][0], expected[c], 2e-3F) << "channel " << c;
    }
}
} // namespace

// By hand, with the primaries of sRGB: white is (255, 255, 255), X is 95.047, and Y then takes 95.047 for its red.
TEST(InPlaceNumbers, WhiteFromHSVToLabHasHues)
{
    expectPixel({eCGT_HSV, 3}, {0.0F, 0.0F, 255.0F}, {eCGT_CieLab, 3}, {92.20683F, 33.59127F, -5.37278F});
    expectPixel({eCGT_HSV, 3}, {0.0F, 1.0F, 255.0F}, {eCGT_CieLab, 3}, {4.30551F, 291.02041F, 6.77884F});
}

// XYZ of L 50 is 18.4187 times white; red is that, green then takes 18.4187 for X.
TEST(InPlaceNumbers, GreyFromLabToHSVIsNotGrey)
{
    expectPixel({eCGT_CieLab, 3}, {50.0F, 0.0F, 0.0F}, {eCGT_HSV, 3}, {287.56492F, 0.059808F, 18.64982F});
    expectPixel({eCGT_CieLab, 3}, {80.0F, -10.0F, 25.0F}, {eCGT_HSV, 3}, {52.7657F, 0.428347F, 56.26975F});
}
} // namespace kovis::test
