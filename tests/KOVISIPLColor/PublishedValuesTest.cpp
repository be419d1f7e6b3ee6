// Colours that others have published, or that follow from published formulas, converted through the entry function and compared
// to the digits printed. The spaces whose convention differs from the published one are in docs/conventions.md.

#include "ConvertPixel.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace kovis::imaproc::color
{
namespace
{
using namespace image;
using test::allChannels;
using test::convertPixel;
using test::expectNear;
using test::Pixel;
} // namespace

// IEC 61966-2-1:1999, the matrix from linear sRGB to XYZ, which its columns show for the full primaries. It prints four digits,
// worked out for a white of rounded chromaticities (0.3127, 0.3290); that moves its last digit by up to one unit, and by two
// where blue meets Z.
TEST(PublishedValues, PrimariesOfTheSRGBStandard)
{
    const Pixel unit = allChannels(0.01);
    expectNear(convertPixel<unsigned char>(eCGT_Rgb, eCGT_XYZ, {255, 0, 0}), {41.24, 21.26, 1.93}, unit);
    expectNear(convertPixel<unsigned char>(eCGT_Rgb, eCGT_XYZ, {0, 255, 0}), {35.76, 71.52, 11.92}, unit);
    expectNear(convertPixel<unsigned char>(eCGT_Rgb, eCGT_XYZ, {0, 0, 255}), {18.05, 7.22, 95.05}, {0.01, 0.01, 0.02});
}

// CIE 15, illuminant D65, 2 degree observer: X 95.047, Y 100, Z 108.883.
TEST(PublishedValues, WhiteIsThatOfTheStandardIlluminant)
{
    expectNear(convertPixel<unsigned char>(eCGT_Rgb, eCGT_XYZ, {255, 255, 255}), {95.047, 100.0, 108.883}, allChannels(0.0005));
    expectNear(convertPixel<unsigned char>(eCGT_Rgb, eCGT_CieLab, {255, 255, 255}), {100.0, 0.0, 0.0}, allChannels(0.005));
}

// The corners of the sRGB cube in Lab: no table, but worked out by hand in double, from the primaries and the curve of
// IEC 61966-2-1 and the formulas of CIE 15 (ISO/CIE 11664-4) for a white of 95.047, 100, 108.883, rounded to the digits
// shown.
TEST(PublishedValues, CornersOfTheSRGBCubeInLab)
{
    const Pixel half = allChannels(0.0051);
    expectNear(convertPixel<unsigned char>(eCGT_Rgb, eCGT_CieLab, {255, 0, 0}), {53.24, 80.09, 67.20}, half);
    expectNear(convertPixel<unsigned char>(eCGT_Rgb, eCGT_CieLab, {0, 255, 0}), {87.73, -86.18, 83.18}, half);
    expectNear(convertPixel<unsigned char>(eCGT_Rgb, eCGT_CieLab, {0, 0, 255}), {32.30, 79.19, -107.86}, half);
    expectNear(convertPixel<unsigned char>(eCGT_Rgb, eCGT_CieLab, {0, 255, 255}), {91.11, -48.09, -14.13}, half);
    expectNear(convertPixel<unsigned char>(eCGT_Rgb, eCGT_CieLab, {255, 0, 255}), {60.32, 98.23, -60.82}, half);
    expectNear(convertPixel<unsigned char>(eCGT_Rgb, eCGT_CieLab, {255, 255, 0}), {97.14, -21.55, 94.48}, half);
    expectNear(convertPixel<unsigned char>(eCGT_Rgb, eCGT_CieLab, {128, 128, 128}), {53.585, 0.0, 0.0}, half);
}

// CIE 15, L*: 50 at a luminance factor of 18.4187, 49.5 for the grey card of 18 percent, 8 at the end of the linear part.
TEST(PublishedValues, LightnessOfGreys)
{
    const auto lightness = [](double factor) {
        return convertPixel<float>(eCGT_XYZ, eCGT_CieLab, {0.95047 * factor, factor, 1.08883 * factor})[0];
    };
    EXPECT_NEAR(lightness(18.4187), 50.0, 0.0005);
    EXPECT_NEAR(lightness(18.0), 49.5, 0.05);
    EXPECT_NEAR(lightness(0.8856), 8.0, 0.005);
    EXPECT_NEAR(convertPixel<float>(eCGT_CieLab, eCGT_XYZ, {50.0, 0.0, 0.0})[1], 18.42, 0.005);
}

// CIE 15, u' and v' of D65: 0.1978 and 0.4683. Their four digits stand for 0.065 in u and v at L 100.
TEST(PublishedValues, WhiteHasNoChromaInLuv)
{
    expectNear(convertPixel<float>(eCGT_XYZ, eCGT_CieLuv, {0.95047 * 0.329024, 0.329024, 1.08883 * 0.329024}), {100.0, 0.0, 0.0},
               {0.0001, 0.065, 0.065});
}

// The formulas of CIE 15 for L*, u*, v*, in double, with the white of this family: Y 0.329024, u' 0.1978, v' 0.4683.
TEST(PublishedValues, LuvByTheFormulasOfTheStandard)
{
    const auto luvOf = [](const Pixel& xyz) -> Pixel
    {
        const double ratio = xyz[1] / 0.329024;
        const double lightness =
            ratio > std::pow(6.0 / 29.0, 3.0) ? 116.0 * std::cbrt(ratio) - 16.0 : std::pow(29.0 / 3.0, 3.0) * ratio;
        const double sum = xyz[0] + 15.0 * xyz[1] + 3.0 * xyz[2];
        return {lightness, 13.0 * lightness * (4.0 * xyz[0] / sum - 0.1978), 13.0 * lightness * (9.0 * xyz[1] / sum - 0.4683)};
    };
    for (const Pixel& xyz : {Pixel{0.3, 0.329024, 0.35}, Pixel{0.2, 0.1, 0.05}, Pixel{0.1, 0.25, 0.3}, Pixel{0.001, 0.002, 0.003},
                             Pixel{20.0, 30.0, 10.0}, Pixel{41.24, 21.26, 1.93}})
    {
        const Pixel expected = luvOf(xyz);
        const double tolerance = 1e-4 + 2e-6 * std::abs(expected[0]);
        const Pixel found = convertPixel<float>(eCGT_XYZ, eCGT_CieLuv, xyz);
        // Single precision loses what lies between the two chromaticities: 13 * L times one unit of 0.5.
        expectNear(found, expected,
                   {tolerance, tolerance + 13.0 * expected[0] * 1.2e-7, tolerance + 13.0 * expected[0] * 1.2e-7});
        expectNear(convertPixel<float>(eCGT_CieLuv, eCGT_XYZ, found), xyz, allChannels(2e-5 * (xyz[0] + xyz[1] + xyz[2])));
    }
}

// JFIF 1.02, from RGB to YCbCr: its coefficients with the six digits that follow from those of ITU-R BT.601.
TEST(PublishedValues, YCbCrOfJpegFiles)
{
    const Pixel half = allChannels(255.0 * 0.6e-6);
    const auto scaled = [](double y, double cb, double cr) -> Pixel {
        return {255.0 * y, 128.0 + 255.0 * cb, 128.0 + 255.0 * cr};
    };
    expectNear(convertPixel<unsigned char>(eCGT_Rgb, eCGT_YCbCr, {255, 0, 0}), scaled(0.299, -0.168736, 0.5), half);
    expectNear(convertPixel<unsigned char>(eCGT_Rgb, eCGT_YCbCr, {0, 255, 0}), scaled(0.587, -0.331264, -0.418688), half);
    expectNear(convertPixel<unsigned char>(eCGT_Rgb, eCGT_YCbCr, {0, 0, 255}), scaled(0.114, 0.5, -0.081312), half);
}

// Wikipedia, "HSL and HSV", the table of examples: R, G, B, hue, both saturations, value and lightness. Its formulas are those of
// A. R. Smith, "Color Gamut Transform Pairs" (SIGGRAPH 1978), for HSV, and of G. H. Joblove and D. Greenberg, "Color Spaces for
// Computer Graphics" (the same volume), for HLS.
TEST(PublishedValues, HueSaturationValueAndLightness)
{
    struct Example
    {
        Pixel rgb;
        double hue;
        double saturationHsv;
        double saturationHls;
        double value;
        double lightness;
    };
    const Example examples[] = {{{1.0, 0.0, 0.0}, 0.0, 1.0, 1.0, 1.0, 0.5},
                                {{0.75, 0.75, 0.0}, 60.0, 1.0, 1.0, 0.75, 0.375},
                                {{0.0, 0.5, 0.0}, 120.0, 1.0, 1.0, 0.5, 0.25},
                                {{0.5, 1.0, 1.0}, 180.0, 0.5, 1.0, 1.0, 0.75},
                                {{0.5, 0.5, 1.0}, 240.0, 0.5, 1.0, 1.0, 0.75},
                                {{0.75, 0.25, 0.75}, 300.0, 0.667, 0.5, 0.75, 0.5},
                                {{0.628, 0.643, 0.142}, 61.8, 0.779, 0.638, 0.643, 0.393},
                                {{0.255, 0.104, 0.918}, 251.1, 0.887, 0.832, 0.918, 0.511},
                                {{0.116, 0.675, 0.255}, 134.9, 0.828, 0.707, 0.675, 0.396},
                                {{0.941, 0.785, 0.053}, 49.5, 0.944, 0.893, 0.941, 0.497},
                                {{0.704, 0.187, 0.897}, 283.7, 0.792, 0.775, 0.897, 0.542},
                                {{0.931, 0.463, 0.316}, 14.3, 0.661, 0.817, 0.931, 0.624},
                                {{0.998, 0.974, 0.532}, 56.9, 0.467, 0.991, 0.998, 0.765},
                                {{0.099, 0.795, 0.591}, 162.4, 0.875, 0.779, 0.795, 0.447},
                                {{0.211, 0.149, 0.597}, 248.3, 0.750, 0.601, 0.597, 0.373},
                                {{0.495, 0.493, 0.721}, 240.5, 0.316, 0.290, 0.721, 0.607}};
    // Half a unit of the last printed digit, and a little for results that lie half-way.
    const Pixel half = {0.0501, 0.00051, 0.00051};
    for (const Example& example : examples)
    {
        SCOPED_TRACE("hue " + std::to_string(example.hue));
        expectNear(convertPixel<float>(eCGT_Rgb, eCGT_HSV, example.rgb), {example.hue, example.saturationHsv, example.value},
                   half);
        expectNear(convertPixel<float>(eCGT_Rgb, eCGT_HLS, example.rgb), {example.hue, example.lightness, example.saturationHls},
                   half);
    }
}
} // namespace kovis::imaproc::color
