#include "ErrorText.h"
#include "LightnessImages.h"
#include "SpaceImages.h"

#include "KOVIS/KOVISBaseProcessing/BaseProcessorDispatcher.h"
#include "KOVIS/KOVISBaseProcessing/KOVISBaseProcessingLog.h"
#include "KOVISIPL/KOVISIPLColor/KOVISIPLColorLog.h"
#include "KOVISIPL/KOVISIPLColor/Processor/LightnessImg/LightnessImg.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

// Whole images through lightnessImg.

namespace kovis::imaproc::color
{
namespace
{
using namespace image;
using attr::eLightnessType;
using attr::eLT_Average;
using attr::eLT_Lightness;
using attr::eLT_Luminosity;
using test::expectLightness;
using test::getError;
using test::makeVariedImage;

TEST(LightnessImg, AveragesWhereNoFormulaIsNamed)
{
    const auto in = makeVariedImage<unsigned char>(test::makeColorGeometry(37, 29, eCGT_Rgb, eIBT_UInt8));
    const auto made = lightnessImg(in);
    expectLightness<unsigned char>(*in, *made, eLT_Average);
    EXPECT_EQ(test::getPlanes<unsigned char>(*lightnessImg(in, eLT_Average)), test::getPlanes<unsigned char>(*made));
    const auto given = createImage2d(37, 29, eCGT_Grey, eIBT_UInt8);
    lightnessImg(in, given);
    EXPECT_EQ(test::getPlanes<unsigned char>(*given), test::getPlanes<unsigned char>(*made));
    EXPECT_EQ(in.use_count(), 1);
    EXPECT_EQ(made.use_count(), 1);
}

TEST(LightnessImg, ComputesEverySliceOfVolumesAndTimeSeries)
{
    const auto in = makeVariedImage<unsigned char>(test::makeColorGeometry(5, 7, eCGT_Rgb, eIBT_UInt8, 3, 2));
    for (const eLightnessType type : test::g_lightnessFormulas)
    {
        const auto made = lightnessImg(in, type);
        expectLightness<unsigned char>(*in, *made, type);
        const auto given = createImage(test::makeColorGeometry(5, 7, eCGT_Grey, eIBT_UInt8, 3, 2));
        lightnessImg(in, type, given);
        expectLightness<unsigned char>(*in, *given, type);
    }
}

template <class T>
void expectBufferType(eImageBufferType type)
{
    const auto in = makeVariedImage<T>(test::makeColorGeometry(13, 9, eCGT_Rgb, type));
    for (const eLightnessType formula : test::g_lightnessFormulas)
    {
        expectLightness<T>(*in, *lightnessImg(in, formula), formula);
    }
}

TEST(LightnessImg, KeepsEachOfTheElevenBufferTypes)
{
    expectBufferType<signed char>(eIBT_Int8);
    expectBufferType<unsigned char>(eIBT_UInt8);
    expectBufferType<short>(eIBT_Int16);
    expectBufferType<unsigned short>(eIBT_UInt16);
    expectBufferType<int>(eIBT_Int32);
    expectBufferType<unsigned int>(eIBT_UInt32);
    expectBufferType<float>(eIBT_Real);
    expectBufferType<unsigned char>(eIBT_UInt8_8);
    expectBufferType<unsigned short>(eIBT_UInt16_9);
    expectBufferType<unsigned int>(eIBT_UInt32_10);
    expectBufferType<unsigned char>(eIBT_UInt8_11);
}

TEST(LightnessImg, CopiesAGreyImageButRefusesItsLuminosity)
{
    const auto in = makeVariedImage<short>(test::makeColorGeometry(5, 4, eCGT_Grey, eIBT_Int16));
    for (const eLightnessType type : {eLT_Average, eLT_Lightness})
    {
        EXPECT_EQ(test::getPlanes<short>(*lightnessImg(in, type)), test::getPlanes<short>(*in));
    }
    const auto given = test::makeFilledImage<short>(5, 4, eCGT_Grey, 7);
    const std::string text = getError([&] { lightnessImg(in, eLT_Luminosity, given); });
    EXPECT_NE(text.find("The input image must have 3 channels to compute the luminosity but contains 1 channel"),
              std::string::npos)
        << text;
    EXPECT_EQ(text.find("channels", text.find("contains")), std::string::npos) << text;
    EXPECT_EQ(test::getPlanes<short>(*given)[0], std::vector<short>(20, 7)); // nothing is written
}

TEST(LightnessImg, CountsAlphaAmongTheChannelsButRefusesItsLuminosity)
{
    const auto in = test::makeFilledImage<unsigned char>(5, 4, eCGT_Rgba, 10); // 10, 11, 12, 13
    std::fill_n(planeData<unsigned char>(in, 3), 20, static_cast<unsigned char>(255));
    EXPECT_EQ(test::getPlanes<unsigned char>(*lightnessImg(in))[0], std::vector<unsigned char>(20, 72));
    EXPECT_EQ(test::getPlanes<unsigned char>(*lightnessImg(in, eLT_Lightness))[0], std::vector<unsigned char>(20, 133));
    const auto given = test::makeFilledImage<unsigned char>(5, 4, eCGT_Grey, 7);
    const std::string words = "The input image must have 3 channels to compute the luminosity but contains 4 channels";
    std::string text = getError([&] { lightnessImg(in, eLT_Luminosity, given); });
    EXPECT_NE(text.find(words), std::string::npos) << text;
    EXPECT_EQ(test::getPlanes<unsigned char>(*given)[0], std::vector<unsigned char>(20, 7));
    text = getError([&] { lightnessImg(createImageUser2d(5, 4, 4, eIBT_Real), eLT_Luminosity); });
    EXPECT_NE(text.find(words), std::string::npos) << text;
}

TEST(LightnessImg, TakesTheMiddleOfTwoChannels)
{
    const auto in = createImageUser2d(5, 4, 2, eIBT_UInt8);
    std::fill_n(planeData<unsigned char>(in, 0), 20, static_cast<unsigned char>(200));
    std::fill_n(planeData<unsigned char>(in, 1), 20, static_cast<unsigned char>(101));
    EXPECT_EQ(test::getPlanes<unsigned char>(*lightnessImg(in, eLT_Lightness))[0], std::vector<unsigned char>(20, 151));
    EXPECT_NE(getError([&] { lightnessImg(in, eLT_Luminosity); }).find("contains 2 channels"), std::string::npos);
}

TEST(LightnessImg, WeighsThreeChannelsOfAnySpaceAsTheyStand)
{
    for (const eColorGeometryType space : {eCGT_Rgb, eCGT_HSV, eCGT_CieLab, eCGT_YCbCr})
    {
        const auto in = makeVariedImage<float>(test::makeColorGeometry(9, 7, space, eIBT_Real));
        expectLightness<float>(*in, *lightnessImg(in, eLT_Luminosity), eLT_Luminosity);
    }
    const auto user = createImageUser2d(5, 4, 3, eIBT_UInt8);
    std::fill_n(planeData<unsigned char>(user, 1), 20, static_cast<unsigned char>(100));
    EXPECT_EQ(test::getPlanes<unsigned char>(*lightnessImg(user, eLT_Luminosity))[0], std::vector<unsigned char>(20, 72));
}

/// A number that names no formula is no luminosity to level 1, so that it counts no channels; level 3 takes it for one.
TEST(LightnessImg, WeighsThreeOfFourChannelsByANumberThatNamesNoFormula)
{
    const auto unknown = static_cast<eLightnessType>(7);
    const auto in = makeVariedImage<unsigned char>(createImageUser2d(37, 29, 4, eIBT_UInt8)->getGeometry());
    expectLightness<unsigned char>(*in, *lightnessImg(in, unknown), eLT_Luminosity);

    const auto given = makeVariedImage<unsigned char>(test::makeColorGeometry(5, 4, eCGT_Grey, eIBT_UInt8));
    const auto run = [&] { lightnessImg(createImageUser2d(5, 4, 2, eIBT_UInt8), unknown, given); };
    EXPECT_THROW(run(), KOVISIPLColorException);
    EXPECT_EQ(getError(run),
              "the luminosity reads channels 0 to 2 of the strip of LightnessImgLvl3, which has 2 channels: give a "
              "strip of three channels, or another formula");
    test::expectVaried<unsigned char>(*given);
}

/// The part of the rule that refuses names both attributes; nothing is written.
template <class T>
void expectRefused(const BaseImageGeometry& geometry, const std::string& rule)
{
    const auto in = createImage(test::makeColorGeometry(5, 4, eCGT_Rgb, eIBT_UInt8, 2, 2));
    const auto given = makeVariedImage<T>(geometry);
    const std::string text = getError([&] { lightnessImg(in, given); });
    EXPECT_NE(text.find(rule), std::string::npos) << text;
    EXPECT_NE(text.find("InColorImg"), std::string::npos) << text;
    EXPECT_NE(text.find("OutLightImg"), std::string::npos) << text;
    test::expectVaried<T>(*given);
}

TEST(LightnessImg, RefusesAResultOfAnotherSizeOrType)
{
    expectRefused<unsigned char>(test::makeColorGeometry(6, 4, eCGT_Grey, eIBT_UInt8, 2, 2), "size match");
    expectRefused<unsigned char>(test::makeColorGeometry(5, 3, eCGT_Grey, eIBT_UInt8, 2, 2), "size match");
    expectRefused<unsigned char>(test::makeColorGeometry(5, 4, eCGT_Grey, eIBT_UInt8, 1, 2), "size match");
    expectRefused<unsigned char>(test::makeColorGeometry(5, 4, eCGT_Grey, eIBT_UInt8, 2, 1), "size match");
    expectRefused<float>(test::makeColorGeometry(5, 4, eCGT_Grey, eIBT_Real, 2, 2), "buffer type match");
    // the storage is the same, the type is not
    expectRefused<unsigned char>(test::makeColorGeometry(5, 4, eCGT_Grey, eIBT_UInt8_8, 2, 2), "buffer type match");
}

TEST(LightnessImg, RefusesAResultOfThreeChannelsByItsNumberOfPieces)
{
    // its size passes the rule, which leaves channels out
    const auto in = test::makeFilledImage<unsigned char>(5, 4, eCGT_Rgb, 10);
    const auto given = test::makeFilledImage<unsigned char>(5, 4, eCGT_Rgb, 7);
    const std::string text = getError([&] { lightnessImg(in, given); });
    EXPECT_NE(text.find("attribute InSubColorImg2d is cut into 1 pieces"), std::string::npos) << text;
    EXPECT_NE(text.find("attribute OutLightImg into 3"), std::string::npos) << text;
    EXPECT_EQ(test::getPlanes<unsigned char>(*given)[0], std::vector<unsigned char>(20, 7));
}

TEST(LightnessImg, RefusesWhatIsNull)
{
    const auto in = test::makeFilledImage<unsigned char>(5, 4, eCGT_Rgb, 10);
    EXPECT_NE(getError([] { lightnessImg(test::ConstImagePtr()); }).find("InColorImg"), std::string::npos);
    EXPECT_NE(getError([&] { lightnessImg(in, test::ImagePtr()); }).find("OutLightImg"), std::string::npos);
    EXPECT_FALSE(getError([] { getAsyncProcessorOutput(boost::shared_ptr<LightnessImgLvl1>()); }).empty());
}

/// Every formula in strips of that many rows, 0 for as many as the system likes.
template <class T>
void expectEveryStripHeight(const test::ConstImagePtr& in, const test::ImagePtr& out)
{
    for (const unsigned long height : {0UL, 1UL, 3UL, 16UL})
    {
        processor::setStripHeight(height);
        for (const eLightnessType formula : test::g_lightnessFormulas)
        {
            lightnessImg(in, formula, out);
            expectLightness<T>(*in, *out, formula);
            ASSERT_FALSE(testing::Test::HasFatalFailure()) << "strips of " << height << " rows";
        }
    }
}

template <class T>
class LightnessStrips : public testing::Test
{
protected:
    ~LightnessStrips() override { processor::setStripHeight(0); }
};
using StripTypes = testing::Types<signed char, unsigned char, short, unsigned short, int, unsigned int, float>;
TYPED_TEST_SUITE(LightnessStrips, StripTypes);

/// ... on planes with the room that kernels need, and on the caller's own, which end where readable memory ends.
TYPED_TEST(LightnessStrips, GiveTheSameForEveryCutAndMemory)
{
    const test::ModelSpace rgb{eCGT_Rgb, 3};
    const test::ModelSpace grey{eCGT_Grey, 1};
    for (const unsigned long sizeX : {1UL, 37UL, 64UL, 129UL})
    {
        for (const unsigned long sizeY : {1UL, 35UL})
        {
            for (const bool bInWrapped : {false, true})
            {
                const test::ImagePtr in = test::makeSpaceImage<TypeParam>(sizeX, sizeY, rgb, bInWrapped);
                test::fillVaried<TypeParam>(*in);
                for (const bool bOutWrapped : {false, true})
                {
                    SCOPED_TRACE(std::to_string(sizeX) + " x " + std::to_string(sizeY) + (bInWrapped ? ", input wrapped" : "") +
                                 (bOutWrapped ? ", output wrapped" : ""));
                    expectEveryStripHeight<TypeParam>(in, test::makeSpaceImage<TypeParam>(sizeX, sizeY, grey, bOutWrapped));
                    ASSERT_FALSE(this->HasFatalFailure());
                }
            }
        }
    }
}

TEST(LightnessImg, MayWriteIntoAPlaneOfItsInput)
{
    const auto in = makeVariedImage<unsigned char>(test::makeColorGeometry(200, 100, eCGT_Rgb, eIBT_UInt8));
    const auto expected = test::getPlanes<unsigned char>(*lightnessImg(in));
    const auto same = wrapImage(test::makeColorGeometry(200, 100, eCGT_Grey, eIBT_UInt8), {planeData<unsigned char>(in, 1)}, in);
    lightnessImg(in, same);
    EXPECT_EQ(test::getPlanes<unsigned char>(*same), expected);
}

TEST(LightnessImgAsync, GivesItsOutputWhenItIsDone)
{
    const auto in = makeVariedImage<unsigned char>(test::makeColorGeometry(50, 40, eCGT_Rgb, eIBT_UInt8));
    const auto given = createImage2d(50, 40, eCGT_Grey, eIBT_UInt8);
    for (const eLightnessType type : test::g_lightnessFormulas)
    {
        const auto processor = lightnessImg_async(in, type);
        ASSERT_TRUE(processor->wait());
        EXPECT_EQ(processor->getProgress(), 1.0);
        expectLightness<unsigned char>(*in, *getAsyncProcessorOutput(processor), type);
        const auto another = lightnessImg_async(in, type, given);
        EXPECT_EQ(getAsyncProcessorOutput(another), given);
        ASSERT_TRUE(another->wait());
        expectLightness<unsigned char>(*in, *given, type);
    }
    const auto processor = lightnessImg_async(in);
    ASSERT_TRUE(processor->wait());
    expectLightness<unsigned char>(*in, *getAsyncProcessorOutput(processor), eLT_Average);
    const auto another = lightnessImg_async(in, given);
    ASSERT_TRUE(another->wait());
    EXPECT_EQ(getAsyncProcessorOutput(another), given);
    expectLightness<unsigned char>(*in, *given, eLT_Average);
}

TEST(LightnessImgAsync, ShowsAFailureInItsRunResultAlone)
{
    const auto processor = lightnessImg_async(createImage2d(5, 4, eCGT_Grey, eIBT_UInt8), eLT_Luminosity);
    EXPECT_FALSE(processor->wait());
    EXPECT_EQ(processor->getState(), core::eActionState::failed);
    EXPECT_NE(getError([&] { processor->getRunResult(); }).find("contains 1 channel"), std::string::npos);
    EXPECT_FALSE(getAsyncProcessorOutput(processor)); // what the run had made is taken out again
    EXPECT_THROW(getAsyncProcessorOutput(LightnessImgLvl1::createProcessor()), processor::KOVISBaseProcessingException);
}

} // namespace
} // namespace kovis::imaproc::color
