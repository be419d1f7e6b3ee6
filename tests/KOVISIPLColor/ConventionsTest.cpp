// The figures of docs/conventions.md that are this system's own, to the digits that the page shows. They come from the formulas.

#include "ConvertPixel.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace kovis::imaproc::color
{
namespace
{
using namespace image;
using test::allChannels;
using test::convertPixel;
using test::convertPixelByLevel2;
using test::expectNear;
using test::makePixel;
using test::Pixel;
using test::PixelImage;
using test::readPixel;

constexpr double g_twoDigits = 0.0051;
constexpr double g_threeDigits = 0.00051;
} // namespace

TEST(Conventions, BytesHoldTheNumbersOfTheFormulas)
{
    const auto toBytes = [](eColorGeometryType to, const Pixel& rgb)
    { return convertPixel<unsigned char, unsigned char>(eCGT_Rgb, to, rgb); };
    EXPECT_EQ(toBytes(eCGT_HSV, {255.0, 0.0, 255.0}), (Pixel{255.0, 1.0, 255.0}));
    EXPECT_EQ(toBytes(eCGT_CieLab, {255.0, 0.0, 0.0}), (Pixel{53.0, 80.0, 67.0}));
    EXPECT_EQ(toBytes(eCGT_CieLab, {0.0, 0.0, 255.0}), (Pixel{32.0, 79.0, 0.0}));
    EXPECT_EQ(toBytes(eCGT_YCbCr, {255.0, 255.0, 255.0}), (Pixel{255.0, 128.0, 128.0}));
}

TEST(Conventions, LumaAndChroma)
{
    expectNear(convertPixel<float>(eCGT_Rgb, eCGT_YCbCr, {1.0, 0.0, 0.0}), {0.299, 127.831, 128.5}, allChannels(g_threeDigits));
    expectNear(convertPixel<unsigned char>(eCGT_Rgb, eCGT_YCbCr, {255.0, 255.0, 255.0}), {255.0, 128.0, 128.0},
               allChannels(g_threeDigits));
    const auto red = makePixel<unsigned char>(eCGT_Rgb, {255.0, 0.0, 0.0});
    EXPECT_NEAR(planeData<float>(colorConvertImg(red, eCGT_Grey), 0)[0], 76.245F, 0.00051F);
}

TEST(Conventions, HueInDegreesAndTheConstantOfHLS)
{
    expectNear(convertPixel<unsigned char>(eCGT_Rgb, eCGT_HSV, {10.0, 20.0, 30.0}), {210.0, 0.6667, 30.0}, allChannels(0.00006));
    expectNear(convertPixel<unsigned char>(eCGT_Rgb, eCGT_HLS, {255.0, 0.0, 0.0}), {0.0, 127.5, -1.0079}, allChannels(0.00006));
    expectNear(convertPixel<float>(eCGT_Rgb, eCGT_HLS, {1.0, 0.0, 0.0}), {0.0, 0.5, 1.0}, allChannels(0.00006));
}

TEST(Conventions, TheCurveIsOnOneWayOnly)
{
    const Pixel digits = allChannels(g_threeDigits);
    expectNear(convertPixel<unsigned char>(eCGT_Rgb, eCGT_XYZ, {255.0, 0.0, 0.0}), {41.246, 21.267, 1.933}, digits);
    expectNear(convertPixelByLevel2(eCGT_Rgb, eCGT_XYZ, {1.0, 1.0, 1.0}), {0.0288, 0.0304, 0.0330}, allChannels(0.00006));
    expectNear(convertPixel<float>(eCGT_XYZ, eCGT_Rgb, {95.047, 100.0, 108.883}), {100.0, 100.0, 100.0}, digits);
    expectNear(convertPixel<float>(eCGT_XYZ, eCGT_Rgb, convertPixel<unsigned char>(eCGT_Rgb, eCGT_XYZ, {128.0, 128.0, 128.0})),
               {21.586, 21.586, 21.586}, digits);

    const auto rgba = createImage2d(1, 1, eCGT_Rgba, eIBT_UInt8);
    planeData<unsigned char>(rgba, 0)[0] = 255;
    planeData<unsigned char>(rgba, 3)[0] = 255;
    const auto xyz = colorConvertImg(rgba, eCGT_XYZ);
    expectNear({planeData<float>(xyz, 0)[0], planeData<float>(xyz, 1)[0], planeData<float>(xyz, 2)[0]}, {105.176, 54.232, 4.930},
               digits);
}

TEST(Conventions, FloatRgbToXyzAndLabIsThatOfZeros)
{
    for (const eColorGeometryType to : {eCGT_XYZ, eCGT_CieLab})
    {
        EXPECT_EQ(convertPixel<float>(eCGT_Rgb, to, {255.0, 100.0, 10.0}), convertPixel<float>(eCGT_Rgb, to, {0.0, 0.0, 0.0}));
    }
}

TEST(Conventions, LabBelowTheThresholdTakesItsOwnChannels)
{
    expectNear(convertPixel<float>(eCGT_CieLab, eCGT_XYZ, {53.24, 80.09, 67.20}), {41.24, 21.27, 1.93}, allChannels(g_twoDigits));
    expectNear(convertPixel<float>(eCGT_CieLab, eCGT_XYZ, {0.0, 0.0, 0.0}), {-1.6836, 0.0, -1.9286}, allChannels(0.00006));
    expectNear(convertPixel<float>(eCGT_CieLab, eCGT_XYZ, {5.0, 0.0, 0.0}), {-1.6836, 0.5535, -1.9286}, allChannels(0.00006));
    expectNear(convertPixel<float>(eCGT_CieLab, eCGT_XYZ, {50.0, -40.0, 80.0}), {11.112, 18.419, 1116.68},
               {g_threeDigits, g_threeDigits, g_twoDigits});
}

TEST(Conventions, WhiteOfLuv)
{
    expectNear(convertPixel<unsigned char>(eCGT_Rgb, eCGT_CieLuv, {255.0, 255.0, 255.0}), {763.918, 0.395, 0.360},
               {g_threeDigits, 0.002, 0.002});
    expectNear(convertPixel<unsigned char>(eCGT_Rgb, eCGT_CieLuv, {255.0, 0.0, 0.0}), {449.536, 1477.96, 319.01},
               {g_threeDigits, g_twoDigits, g_twoDigits});
    const double scale = 0.00329024;
    expectNear(convertPixel<float>(eCGT_XYZ, eCGT_CieLuv, {41.245644 * scale, 21.267285 * scale, 1.933390 * scale}),
               {53.24, 175.04, 37.78}, allChannels(g_twoDigits));
    const Pixel black = convertPixel<unsigned char>(eCGT_Rgb, eCGT_CieLuv, {0.0, 0.0, 0.0});
    EXPECT_EQ(black[0], 0.0);
    EXPECT_TRUE(std::isnan(black[1]) && std::isnan(black[2]));
    const Pixel xyz = convertPixel<float>(eCGT_CieLuv, eCGT_XYZ, {0.0, 0.0, 0.0});
    EXPECT_TRUE(std::isnan(xyz[0]) && std::isnan(xyz[2]));
    EXPECT_EQ(xyz[1], 0.0);
}

TEST(Conventions, MiddleLinksWorkInPlace)
{
    const Pixel digits = allChannels(g_twoDigits);
    expectNear(convertPixel<float>(eCGT_HSV, eCGT_CieLab, {0.0, 1.0, 255.0}), {4.31, 291.02, 6.78}, digits);
    expectNear(convertPixel<float>(eCGT_HSV, eCGT_CieLab, {0.0, 0.0, 255.0}), {92.21, 33.59, -5.37}, digits);
    expectNear(convertPixel<float>(eCGT_CieLab, eCGT_HSV, {53.240789, 80.092494, 67.203191}), {330.88, 1.569, 100.0},
               {g_twoDigits, g_threeDigits, g_twoDigits});
}

// The pairs above by hand, through the RGB of the colour.
TEST(Conventions, TwoConversionsGiveTheColourItself)
{
    const Pixel digits = allChannels(g_twoDigits);
    const Pixel red = {53.24, 80.09, 67.20};
    const Pixel white = {100.0, 0.0, 0.0};
    for (const auto& [hsv, lab] : {std::pair<Pixel, Pixel>{{0.0, 1.0, 255.0}, red}, {{0.0, 0.0, 255.0}, white}})
    {
        for (const PixelImage& rgb : {makePixel<unsigned char>(eCGT_Rgb), makePixel<unsigned short>(eCGT_Rgb)})
        {
            colorConvertImg(makePixel<float>(eCGT_HSV, hsv), eCGT_Rgb, rgb);
            expectNear(readPixel<float>(colorConvertImg(rgb, eCGT_CieLab)), lab, digits);
        }
        // What the first conversion gives by itself is float: right by level 2, the Lab of zeros by the entry function.
        const PixelImage rgb = colorConvertImg(makePixel<float>(eCGT_HSV, hsv), eCGT_Rgb);
        expectNear(convertPixelByLevel2(eCGT_Rgb, eCGT_CieLab, readPixel<float>(rgb)), lab, digits);
        expectNear(readPixel<float>(colorConvertImg(rgb, eCGT_CieLab)), {0.0, 0.0, 0.0}, allChannels(1e-6));
    }
    const PixelImage rgb = colorConvertImg(makePixel<float>(eCGT_HSV, {0.0, 1.0, 255.0}), eCGT_Rgb);
    expectNear(readPixel<float>(colorConvertImg(rgb, eCGT_CieLuv)), {449.536, 1477.96, 319.01}, digits);

    const PixelImage linear = colorConvertImg(makePixel<float>(eCGT_CieLab, {53.240789, 80.092494, 67.203191}), eCGT_Rgb);
    const Pixel hsv = readPixel<float>(colorConvertImg(linear, eCGT_HSV));
    // Red lies at both ends of the hues.
    EXPECT_LT(std::min(hsv[0], 360.0 - hsv[0]), 0.01);
    EXPECT_NEAR(hsv[1], 1.0, 0.0001);
    EXPECT_NEAR(hsv[2], 100.0, g_twoDigits);
}
} // namespace kovis::imaproc::color
