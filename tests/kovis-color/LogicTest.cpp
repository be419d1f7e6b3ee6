#include "ColourSpace.h"
#include "Conversion.h"
#include "LibraryImage.h"
#include "MatrixText.h"
#include "Numbers.h"
#include "Ranges.h"
#include "ToolError.h"
#include "kovis-color/TestFiles.h"

#include <boost/make_shared.hpp>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <fstream>
#include <limits>

namespace kovis::tool::test
{
namespace
{
using image::eColorGeometryType;

std::string parseErrorOf(const std::string& name)
{
    return getErrorOf([&] { parseSpace("--to", name); });
}
} // namespace

TEST(ColourSpace, namesAreReadInAnyCase)
{
    EXPECT_EQ(parseSpace("--to", "HSV"), image::eCGT_HSV);
    EXPECT_EQ(parseSpace("--to", "YCbCr"), image::eCGT_YCbCr);
    EXPECT_EQ(parseSpace("--to", "Lab"), image::eCGT_CieLab);
    EXPECT_EQ(parseSpace("--to", "gray"), image::eCGT_Grey);
    for (int value = 0; value <= 10; ++value)
        EXPECT_EQ(parseSpace("--to", getSpaceName(static_cast<eColorGeometryType>(value))), value);
}

TEST(ColourSpace, aTypoIsAnsweredWithTheNearestName)
{
    EXPECT_EQ(
        parseErrorOf("hvs"),
        "--to: there is no colour space 'hvs'; did you mean 'hsv'? Spaces: grey, rgb, rgba, xyz, ypbpr, ycbcr, lab, luv, hls, "
        "hsv, user");
    EXPECT_NE(parseErrorOf("YCrCb").find("did you mean 'ycbcr'?"), std::string::npos);
    EXPECT_NE(parseErrorOf("gery").find("did you mean 'grey'?"), std::string::npos);
    EXPECT_NE(parseErrorOf("xzy").find("did you mean 'xyz'?"), std::string::npos);
    EXPECT_NE(parseErrorOf(std::string(40, 'q')).find("space '" + std::string(40, 'q') + "'; did you mean"), std::string::npos);
    EXPECT_NE(parseErrorOf(std::string(100000, 'q')).find("space '" + std::string(40, 'q') + "...'; did you mean"),
              std::string::npos);
}

TEST(ColourSpace, theChannelCountTellsTheSpace)
{
    EXPECT_EQ(getDefaultSpace(1), image::eCGT_Grey);
    EXPECT_EQ(getDefaultSpace(2), image::eCGT_User);
    EXPECT_EQ(getDefaultSpace(3), image::eCGT_Rgb);
    EXPECT_EQ(getDefaultSpace(4), image::eCGT_Rgba);
    EXPECT_EQ(getDefaultSpace(5), image::eCGT_User);
    EXPECT_EQ(getSpaceChannels(image::eCGT_Grey), 1U);
    EXPECT_EQ(getSpaceChannels(image::eCGT_Rgba), 4U);
    EXPECT_EQ(getSpaceChannels(image::eCGT_CieLuv), 3U);
    EXPECT_EQ(getSpaceChannels(image::eCGT_User), 0U);
}

TEST(MatrixText, listsAndFiles)
{
    EXPECT_EQ(readMatrix("1,2.5,-3e1 +4"), (std::vector<float>{1.0F, 2.5F, -30.0F, 4.0F}));
    const TestFolder folder;
    std::ofstream(folder.getPath("m.txt")) << "# red and blue\n1 0 0 0.5\n0; 0; 1; -2 # last\n";
    EXPECT_EQ(readMatrix(folder.getPath("m.txt")), (std::vector<float>{1.0F, 0.0F, 0.0F, 0.5F, 0.0F, 0.0F, 1.0F, -2.0F}));
}

TEST(MatrixText, whatIsNoNumberIsNamed)
{
    const TestFolder folder;
    EXPECT_NE(getErrorOf([] { readMatrix("1,2-3"); }).find("'2-3' is no number"), std::string::npos);
    EXPECT_NE(
        getErrorOf([] { readMatrix("1," + std::string(1000, 'x')); }).find("'" + std::string(40, 'x') + "...' is no number"),
        std::string::npos);
    EXPECT_NE(getErrorOf([] { readMatrix(","); }).find("holds no number"), std::string::npos);
    EXPECT_NE(getErrorOf([] { readMatrix("1e99"); }).find("'1e99' is no number"), std::string::npos);
    std::ofstream(folder.getPath("nan.txt")) << "1 nan";
    EXPECT_NE(getErrorOf([&] { readMatrix(folder.getPath("nan.txt")); }).find("'nan' is no number"), std::string::npos);
    EXPECT_NE(getErrorOf([&] { readMatrix(folder.getPath("none.txt")); }).find("cannot be read"), std::string::npos);
    EXPECT_NE(getErrorOf([&] { readMatrix(folder.getPath("")); }).find("cannot be read"), std::string::npos);
}

TEST(Numbers, typesThatTheLibraryChooses)
{
    EXPECT_EQ(getLibraryType(image::eCGT_Rgb, image::eCGT_Rgba, ElementType::eU16), ElementType::eU16);
    EXPECT_EQ(getLibraryType(image::eCGT_HSV, image::eCGT_YCbCr, ElementType::eI8), ElementType::eI8);
    EXPECT_EQ(getLibraryType(image::eCGT_YCbCr, image::eCGT_Rgb, ElementType::eU8), ElementType::eF32);
    EXPECT_EQ(getLibraryType(image::eCGT_Grey, image::eCGT_Grey, ElementType::eU8), ElementType::eF32);
}

TEST(Numbers, theNearestTypeThatAFormatHolds)
{
    const auto nearest = [](FileFormat format, ElementType wanted, eColorGeometryType to, ElementType input)
    { return getNearestType(format, wanted, to, input); };
    EXPECT_EQ(nearest(FileFormat::eTiff, ElementType::eF32, image::eCGT_HSV, ElementType::eU8), ElementType::eF32);
    EXPECT_EQ(nearest(FileFormat::ePng, ElementType::eF32, image::eCGT_HSV, ElementType::eU8), ElementType::eU16);
    EXPECT_EQ(nearest(FileFormat::ePng, ElementType::eF32, image::eCGT_Grey, ElementType::eU8), ElementType::eU8);
    EXPECT_EQ(nearest(FileFormat::ePng, ElementType::eF32, image::eCGT_Grey, ElementType::eU16), ElementType::eU16);
    EXPECT_EQ(nearest(FileFormat::ePng, ElementType::eF32, image::eCGT_User, ElementType::eU8), ElementType::eU16);
    EXPECT_EQ(nearest(FileFormat::ePng, ElementType::eI8, image::eCGT_YCbCr, ElementType::eI8), ElementType::eU8);
    EXPECT_EQ(nearest(FileFormat::ePng, ElementType::eI32, image::eCGT_YCbCr, ElementType::eI32), ElementType::eU16);
    EXPECT_EQ(nearest(FileFormat::ePng, ElementType::eU16, image::eCGT_YCbCr, ElementType::eU16), ElementType::eU16);
    EXPECT_EQ(nearest(FileFormat::eJpeg, ElementType::eU16, image::eCGT_YCbCr, ElementType::eU16), ElementType::eU8);
}

TEST(Numbers, theTruthAboutRangesAndSaturation)
{
    EXPECT_EQ(describeRange(image::eCGT_Rgb, image::eCGT_HSV, ElementType::eF32),
              "H 0 to 360 degrees, S 0 to 1, V on the scale of the samples");
    EXPECT_EQ(describeSaturation(image::eCGT_Rgb, image::eCGT_HSV, ElementType::eF32), "");
    EXPECT_EQ(describeSaturation(image::eCGT_Rgb, image::eCGT_HSV, ElementType::eU8),
              "u8 rounds to whole numbers and saturates at 0 and 255, hues above 255 become 255, S becomes 0 or 1");
    EXPECT_EQ(describeSaturation(image::eCGT_XYZ, image::eCGT_HSV, ElementType::eI16),
              "i16 rounds to whole numbers and saturates at -32768 and 32767, S becomes a whole number");
    EXPECT_EQ(describeRange(image::eCGT_XYZ, image::eCGT_HSV, ElementType::eF32),
              "H 0 to 360 degrees, S 0 to 1 where no R, G, B is negative, V on the scale of Y, as linear light");
    EXPECT_EQ(describeSaturation(image::eCGT_Rgb, image::eCGT_YPbPr, ElementType::eU16),
              "u16 rounds to whole numbers and saturates at 0 and 65535, negative Pb and Pr become 0");
    EXPECT_NE(describeSaturation(image::eCGT_Grey, image::eCGT_Grey, ElementType::eI8).find("cuts fractions off"),
              std::string::npos);
    EXPECT_NE(describeRange(image::eCGT_Rgb, image::eCGT_YCbCr, ElementType::eU16).find("32768"), std::string::npos);
    EXPECT_NE(describeRange(image::eCGT_Rgb, image::eCGT_XYZ, ElementType::eF32).find("scale 0 to 255"), std::string::npos);
    EXPECT_EQ(describeRange(image::eCGT_Rgba, image::eCGT_XYZ, ElementType::eF32).find("scale 0 to 255"), std::string::npos);
}

TEST(Conversion, spacesChannelsAndMatrixMustGoTogether)
{
    const auto check = [](eColorGeometryType from, eColorGeometryType to, std::size_t channels, std::size_t nbNumbers)
    {
        Conversion conversion;
        conversion.from = from;
        conversion.to = to;
        conversion.matrix.assign(nbNumbers, 1.0F);
        return getErrorOf([&] { checkConversion("a.tif", conversion, channels); });
    };
    EXPECT_EQ(check(image::eCGT_Rgb, image::eCGT_HSV, 3, 0), "no error");
    EXPECT_EQ(check(image::eCGT_Rgb, image::eCGT_HSV, 4, 0),
              "a.tif: has 4 channel(s), but rgb has 3; choose --from to fit, user takes any number");
    EXPECT_NE(check(image::eCGT_Rgb, image::eCGT_HSV, 3, 4).find("--matrix: is of no use from rgb to hsv"), std::string::npos);
    EXPECT_NE(check(image::eCGT_User, image::eCGT_HSV, 5, 0).find("--matrix: is missing"), std::string::npos);
    EXPECT_NE(check(image::eCGT_Rgb, image::eCGT_User, 3, 0).find("--matrix: is missing"), std::string::npos);
    EXPECT_EQ(check(image::eCGT_Rgb, image::eCGT_User, 3, 8), "no error");
    EXPECT_NE(check(image::eCGT_Rgb, image::eCGT_User, 3, 9).find("has 9 numbers, which do not make whole rows of 4"),
              std::string::npos);
    EXPECT_EQ(check(image::eCGT_User, image::eCGT_HSV, 5, 18), "no error");
    EXPECT_EQ(check(image::eCGT_User, image::eCGT_Grey, 5, 6), "no error");
    EXPECT_NE(check(image::eCGT_User, image::eCGT_Rgba, 5, 18).find("give 4 rows of 6 numbers"), std::string::npos);
    EXPECT_EQ(check(image::eCGT_User, image::eCGT_User, 5, 12), "no error");
}

TEST(Conversion, theCasesThatTheLibraryLeavesEmptyAreKnown)
{
    const auto isEmpty = [](eColorGeometryType from, eColorGeometryType to, ElementType type)
    {
        Conversion conversion;
        conversion.from = from;
        conversion.to = to;
        return isLeftEmptyByTheLibrary(conversion, type);
    };
    EXPECT_TRUE(isEmpty(image::eCGT_Rgb, image::eCGT_XYZ, ElementType::eF32));
    EXPECT_TRUE(isEmpty(image::eCGT_Rgb, image::eCGT_CieLab, ElementType::eF32));
    EXPECT_FALSE(isEmpty(image::eCGT_Rgb, image::eCGT_CieLuv, ElementType::eF32));
    EXPECT_FALSE(isEmpty(image::eCGT_Rgb, image::eCGT_XYZ, ElementType::eU8));
    EXPECT_FALSE(isEmpty(image::eCGT_Rgba, image::eCGT_XYZ, ElementType::eF32));
    EXPECT_FALSE(isEmpty(image::eCGT_HSV, image::eCGT_CieLab, ElementType::eF32));
}

TEST(Conversion, sliceBySliceGivesWhatTheWholeGives)
{
    PictureShape shape;
    shape.sizeX = 67;
    shape.sizeY = 41;
    shape.pages = 3;
    shape.channels = 3;
    shape.type = ElementType::eU8;
    const auto picture = boost::make_shared<Picture>(makePicture(shape));
    Conversion conversion;
    conversion.to = image::eCGT_HSV;
    double progress = 0.0;
    const auto listener = [&progress](double now)
    {
        EXPECT_GE(now, progress);
        progress = now;
    };
    const auto whole = convertPicture(picture, conversion, listener);
    EXPECT_EQ(progress, 1.0);
    progress = 0.0;
    const auto slices = convertSlices(picture, conversion, false, listener);
    EXPECT_EQ(progress, 1.0);
    const PictureView one = viewOf(*whole);
    const PictureView two = viewOf(*slices);
    ASSERT_EQ(one.planes.size(), 9U);
    ASSERT_EQ(two.planes.size(), 9U);
    ASSERT_EQ(two.shape.type, ElementType::eF32);
    for (std::size_t plane = 0; plane < 9; ++plane)
        EXPECT_EQ(std::memcmp(one.planes[plane], two.planes[plane], one.shape.getPlaneBytes()), 0) << plane;
    // Hue is in the first plane of each slice, and the scattered samples have many.
    EXPECT_GT(*std::max_element(static_cast<const float*>(two.planes[6]), static_cast<const float*>(two.planes[6]) + 67 * 41),
              300.0F);
}

TEST(Conversion, theTestOfTheRangeComesBeforeTheSlices)
{
    PictureShape shape;
    shape.sizeX = 4;
    shape.sizeY = 4;
    shape.pages = 2;
    shape.channels = 3;
    shape.type = ElementType::eF32;
    const auto picture = boost::make_shared<Picture>();
    picture->shape = shape;
    picture->allocate();
    picture->getPlane<float>(1, 2)[15] = 255.0F;
    Conversion conversion;
    conversion.to = image::eCGT_HSV;
    const auto listener = [](double) {};
    EXPECT_NO_THROW(convertSlices(picture, conversion, true, listener));
    picture->getPlane<float>(1, 2)[15] = std::nextafter(255.0F, 256.0F);
    EXPECT_NO_THROW(convertSlices(picture, conversion, false, listener));
    EXPECT_THROW(convertSlices(picture, conversion, true, listener), std::runtime_error);
    picture->getPlane<float>(1, 2)[15] = std::numeric_limits<float>::quiet_NaN();
    EXPECT_THROW(convertSlices(picture, conversion, true, listener), std::runtime_error);
}
} // namespace kovis::tool::test
