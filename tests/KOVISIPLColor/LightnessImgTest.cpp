#include "ColorTestImages.h"
#include "ErrorText.h"
#include "SplitNames.h"

#include "KOVIS/KOVISBaseProcessing/KOVISBaseProcessingLog.h"
#include "KOVISIPL/KOVISIPLColor/KOVISIPLColorLog.h"
#include "KOVISIPL/KOVISIPLColor/Processor/LightnessImg/LightnessImg.h"
#include "KOVISIPL/KOVISIPLColor/Processor/LightnessImg/LightnessImgLvl2.h"
#include "KOVISIPL/KOVISIPLColor/Processor/LightnessImg/LightnessImgLvl3.h"
#include "support/GuardedPlane.h"
#include "support/LightnessModel.h"

#include <boost/make_shared.hpp>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

// Whole images through lightnessImg, and the three levels by themselves.

namespace kovis::imaproc::color
{
namespace
{
using namespace image;
using attr::eLightnessType;
using attr::eLT_Average;
using attr::eLT_Lightness;
using attr::eLT_Luminosity;

constexpr eLightnessType g_formulas[] = {eLT_Average, eLT_Lightness, eLT_Luminosity};

using test::getError;

/// Fills every plane with numbers of its own.
template <class T>
test::ImagePtr makeVariedImage(const BaseImageGeometry& geometry)
{
    const test::ImagePtr made = createImage(geometry);
    unsigned int number = 12345;
    for (unsigned long t = 0; t < made->getSizeT(); ++t)
    {
        for (unsigned long z = 0; z < made->getSizeZ(); ++z)
        {
            for (unsigned long c = 0; c < made->getSizeC(); ++c)
            {
                T* const plane = planeData<T>(made, c, z, t);
                for (unsigned long i = 0; i < made->getSizeX() * made->getSizeY(); ++i)
                {
                    number = number * 1664525U + 1013904223U;
                    plane[i] = static_cast<T>(number >> 24);
                }
            }
        }
    }
    return made;
}

/// Numbers of 0 to 255 need no rounding of products that one form does and another does not, but for ties: forms may differ by
/// one in an integer luminosity.
template <class T>
void expectLightness(const BaseImage& in, const BaseImage& out, eLightnessType type)
{
    ASSERT_EQ(out.getSizeC(), 1U);
    ASSERT_EQ(out.getSizeZ(), in.getSizeZ());
    ASSERT_EQ(out.getSizeT(), in.getSizeT());
    EXPECT_EQ(out.getColorGeometryType(), eCGT_Grey);
    EXPECT_EQ(out.getBufferType(), in.getBufferType());
    for (unsigned long t = 0; t < in.getSizeT(); ++t)
    {
        for (unsigned long z = 0; z < in.getSizeZ(); ++z)
        {
            for (unsigned long i = 0; i < in.getSizeX() * in.getSizeY(); ++i)
            {
                std::vector<T> channels;
                for (unsigned long c = 0; c < in.getSizeC(); ++c)
                {
                    channels.push_back(planeData<T>(in, c, z, t)[i]);
                }
                const T found = planeData<T>(out, 0, z, t)[i];
                const bool bFits = found == test::modelLightness<T>(test::g_genericForm, type, channels) ||
                                   found == test::modelLightness<T>(test::g_avx512Form, type, channels);
                ASSERT_TRUE(bFits) << "formula " << type << ", Z " << z << ", T " << t << ", pixel " << i << ": " << +found;
            }
        }
    }
}

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
    for (const eLightnessType type : g_formulas)
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
    for (const eLightnessType formula : g_formulas)
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

TEST(LightnessImg, RefusesAResultOfAnotherSizeOrType)
{
    const auto in = createImage(test::makeColorGeometry(5, 4, eCGT_Rgb, eIBT_UInt8, 2, 2));
    const auto expectRefused = [&in](const BaseImageGeometry& geometry)
    {
        const auto given = createImage(geometry);
        const std::string text = getError([&] { lightnessImg(in, given); });
        EXPECT_NE(text.find("InColorImg"), std::string::npos) << text;
        EXPECT_NE(text.find("OutLightImg"), std::string::npos) << text;
    };
    expectRefused(test::makeColorGeometry(6, 4, eCGT_Grey, eIBT_UInt8, 2, 2));
    expectRefused(test::makeColorGeometry(5, 3, eCGT_Grey, eIBT_UInt8, 2, 2));
    expectRefused(test::makeColorGeometry(5, 4, eCGT_Grey, eIBT_UInt8, 1, 2));
    expectRefused(test::makeColorGeometry(5, 4, eCGT_Grey, eIBT_UInt8, 2, 1));
    expectRefused(test::makeColorGeometry(5, 4, eCGT_Grey, eIBT_Real, 2, 2));
    expectRefused(test::makeColorGeometry(5, 4, eCGT_Grey, eIBT_UInt8_8, 2, 2)); // the storage is the same, the type is not
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

TEST(LightnessImg, WritesNothingOutsideTheCallersPlanes)
{
    constexpr unsigned long sizeX = 23;
    constexpr unsigned long sizeY = 17;
    test::GuardedPlane<unsigned char> planes[4] = {
        test::GuardedPlane<unsigned char>(sizeX * sizeY), test::GuardedPlane<unsigned char>(sizeX * sizeY),
        test::GuardedPlane<unsigned char>(sizeX * sizeY), test::GuardedPlane<unsigned char>(sizeX * sizeY)};
    const auto owner = boost::make_shared<int>(0);
    const auto in = wrapImage(test::makeColorGeometry(sizeX, sizeY, eCGT_Rgb, eIBT_UInt8),
                              {planes[0].data(), planes[1].data(), planes[2].data()}, owner);
    const auto out = wrapImage(test::makeColorGeometry(sizeX, sizeY, eCGT_Grey, eIBT_UInt8), {planes[3].data()}, owner);
    for (int c = 0; c < 3; ++c)
    {
        std::fill_n(planes[c].data(), sizeX * sizeY, static_cast<unsigned char>(10 * c + 30));
    }
    lightnessImg(in, out);
    for (unsigned long i = 0; i < sizeX * sizeY; ++i)
    {
        ASSERT_EQ(planes[3][i], 40) << i;
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
    for (const eLightnessType type : g_formulas)
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

/// The levels with their steps at hand.
class Step1 : public LightnessImgLvl1
{
public:
    using LightnessImgLvl1::retrieveProvider;
};
class Step2 : public LightnessImgLvl2
{
public:
    using LightnessImgLvl2::retrieveProvider;
};

/// The next piece of a dispatcher.
template <class TProcessor>
boost::shared_ptr<TProcessor> takePiece(core::BaseActionProvider& dispatcher)
{
    boost::shared_ptr<core::BaseActionRequest> request;
    boost::shared_ptr<BaseSerializationObject> data;
    bool bGiven = false;
    EXPECT_TRUE(dispatcher.queryNextAction(core::BaseRequestOrigin(), request, bGiven, data));
    EXPECT_TRUE(bGiven);
    return boost::dynamic_pointer_cast<TProcessor>(request->getAction());
}

template <class TProcessor>
eLightnessType getFormula(const TProcessor& processor)
{
    return boost::static_pointer_cast<attr::InLightnessType>(processor.getAttribute("InLightnessType"))->getValue();
}

TEST(LightnessImgLvl1, CutsTheInputIntoSlicesAndTheOutputIntoPlanes)
{
    const auto step = boost::make_shared<Step1>();
    ASSERT_TRUE(step->init());
    step->set<attr::InColorImg>(createImage(test::makeColorGeometry(5, 4, eCGT_Rgb, eIBT_UInt8, 3, 2)));
    step->set<attr::InLightnessType>(eLT_Lightness);
    step->set<attr::OutLightImg>(createImage(test::makeColorGeometry(5, 4, eCGT_Grey, eIBT_UInt8, 3, 2)));
    const core::BasePriority priority(7);
    core::ActionProviderPtr provider;
    ASSERT_EQ(step->retrieveProvider(priority, provider).getStatus(), processor::eRS_Provided);
    step->set<attr::InLightnessType>(eLT_Luminosity); // the pieces have the value of the moment before
    const auto dispatcher = boost::dynamic_pointer_cast<processor::BaseStaticProcessorDispatcher>(provider);
    ASSERT_TRUE(dispatcher);
    EXPECT_EQ(dispatcher->getProcessorName(), "LightnessImgLvl2");
    EXPECT_EQ(test::getSplitNames(*dispatcher), (std::vector<std::string>{"InSubColorImg2d", "InLightnessType", "OutLightImg"}));
    ASSERT_EQ(dispatcher->getNbPieces(), 6U);
    for (int i = 0; i < 6; ++i)
    {
        const auto piece = takePiece<LightnessImgLvl2>(*dispatcher);
        ASSERT_TRUE(piece);
        EXPECT_EQ(piece->getActionPriority(), priority);
        EXPECT_EQ(getFormula(*piece), eLT_Lightness);
        const BaseImage& slice =
            boost::static_pointer_cast<attr::InSubColorImg2d>(piece->getAttribute("InSubColorImg2d"))->getImage();
        EXPECT_EQ(slice.getSizeC(), 3U);
        EXPECT_EQ(boost::static_pointer_cast<attr::OutLightImg>(piece->getAttribute("OutLightImg"))->getImage().getSizeC(), 1U);
    }
    EXPECT_FALSE(dispatcher->hasPendingAction());
}

TEST(LightnessImgLvl2, CutsItsImagesIntoStrips)
{
    const auto step = boost::make_shared<Step2>();
    ASSERT_TRUE(step->init());
    step->set<attr::InSubColorImg2d>(createImage2d(50, 40, eCGT_Rgb, eIBT_UInt8));
    step->set<attr::InLightnessType>(eLT_Luminosity);
    step->set<attr::OutLightImg>(createImage2d(50, 40, eCGT_Grey, eIBT_UInt8));
    processor::setStripHeight(16);
    core::ActionProviderPtr provider;
    const auto result = step->retrieveProvider(core::BasePriority(7), provider);
    processor::setStripHeight(0);
    ASSERT_EQ(result.getStatus(), processor::eRS_Provided) << result.getMessage();
    const auto dispatcher = boost::dynamic_pointer_cast<processor::BaseDynamicProcessorDispatcher>(provider);
    ASSERT_TRUE(dispatcher);
    EXPECT_EQ(dispatcher->getProcessorName(), "LightnessImgLvl3");
    EXPECT_EQ(test::getSplitNames(*dispatcher),
              (std::vector<std::string>{"InColorYStrip2d", "InLightnessType", "OutLightYStrip2d"}));
    ASSERT_EQ(dispatcher->getNbPieces(), 3U); // 40 rows by 16
    unsigned long nbExact = 0;
    while (dispatcher->hasPendingAction())
    {
        const auto piece = takePiece<LightnessImgLvl3>(*dispatcher);
        ASSERT_TRUE(piece);
        EXPECT_EQ(getFormula(*piece), eLT_Luminosity);
        const auto in = boost::static_pointer_cast<attr::InColorYStrip2d>(piece->getAttribute("InColorYStrip2d"))->getStorage();
        const auto out =
            boost::static_pointer_cast<attr::OutLightYStrip2d>(piece->getAttribute("OutLightYStrip2d"))->getStorage();
        EXPECT_EQ(in->getSizeC(), 3U);
        EXPECT_EQ(in->getFirstElement(), nbExact);
        EXPECT_EQ(out->getFirstElement(), nbExact);
        EXPECT_EQ(in->getNbElements(), out->getNbElements());
        nbExact += out->getNbExactElements();
    }
    EXPECT_EQ(nbExact, 2000U);
}

TEST(LightnessImgLvl2, ComparesItsImagesInTwoDimensionsAndTheirTypes)
{
    LightnessImgLvl2 processor;
    ASSERT_TRUE(processor.init());
    processor.set<attr::InSubColorImg2d>(createImage2d(5, 4, eCGT_Rgb, eIBT_UInt8));
    processor.set<attr::OutLightImg>(createImage(test::makeColorGeometry(5, 4, eCGT_Grey, eIBT_UInt8, 2)));
    EXPECT_TRUE(processor.getRule()->testRule());
    processor.set<attr::OutLightImg>(createImage2d(5, 3, eCGT_Grey, eIBT_UInt8));
    EXPECT_FALSE(processor.getRule()->testRule());
    processor.set<attr::OutLightImg>(createImage2d(5, 4, eCGT_Grey, eIBT_UInt16));
    EXPECT_FALSE(processor.getRule()->testRule());
}

TEST(LightnessImgLvl2, RunsByItself)
{
    const auto in = makeVariedImage<unsigned short>(test::makeColorGeometry(31, 12, eCGT_Rgb, eIBT_UInt16));
    const auto out = createImage2d(31, 12, eCGT_Grey, eIBT_UInt16);
    const auto processor = LightnessImgLvl2::createProcessor();
    ASSERT_TRUE(processor->init());
    processor->set<attr::InSubColorImg2d>(in);
    processor->set<attr::InLightnessType>(eLT_Luminosity);
    processor->set<attr::OutLightImg>(out);
    processor::executeSyncRun(processor);
    expectLightness<unsigned short>(*in, *out, eLT_Luminosity);
}

boost::shared_ptr<LightnessImgLvl3> makeLvl3(const test::ImagePtr& in, const test::ImagePtr& out, eLightnessType type)
{
    const auto processor = LightnessImgLvl3::createProcessor();
    EXPECT_TRUE(processor->init());
    processor->set<attr::InColorYStrip2d>(makeInputStrip(in, 0, in->getSizeY()));
    processor->set<attr::InLightnessType>(type);
    processor->set<attr::OutLightYStrip2d>(
        boost::make_shared<OutputImageYStrip2d>(out, ElementsRange(0, out->getSizeX() * out->getSizeY()), eStripElements::exact));
    return processor;
}

template <class T>
void expectLvl3(eImageBufferType type, unsigned long nbChannels)
{
    const auto in = makeVariedImage<T>(createImageUser2d(19, 11, nbChannels, type)->getGeometry());
    for (const eLightnessType formula : g_formulas)
    {
        const auto out = createImage2d(19, 11, eCGT_Grey, type);
        processor::executeSyncRun(makeLvl3(in, out, formula));
        expectLightness<T>(*in, *out, formula);
    }
}

TEST(LightnessImgLvl3, RunsByItselfOnEveryPixelType)
{
    expectLvl3<signed char>(eIBT_Int8, 3);
    expectLvl3<unsigned char>(eIBT_UInt8_11, 4); // the luminosity takes the first three
    expectLvl3<short>(eIBT_Int16, 5);
    expectLvl3<unsigned short>(eIBT_UInt16, 3);
    expectLvl3<int>(eIBT_Int32, 3);
    expectLvl3<unsigned int>(eIBT_UInt32_10, 7);
    expectLvl3<float>(eIBT_Real, 3);
}

TEST(LightnessImgLvl3, TakesEveryOtherFormulaForTheLuminosity)
{
    const auto in = makeVariedImage<float>(test::makeColorGeometry(19, 11, eCGT_Rgb, eIBT_Real));
    const auto out = createImage2d(19, 11, eCGT_Grey, eIBT_Real);
    processor::executeSyncRun(makeLvl3(in, out, static_cast<eLightnessType>(9)));
    expectLightness<float>(*in, *out, eLT_Luminosity);
}

TEST(LightnessImgLvl3, ComparesItsStrips)
{
    const auto in = createImage2d(19, 11, eCGT_Rgb, eIBT_UInt8);
    EXPECT_TRUE(makeLvl3(in, createImage2d(19, 11, eCGT_Grey, eIBT_UInt8), eLT_Average)->getRule()->testRule());
    EXPECT_FALSE(makeLvl3(in, createImage2d(19, 11, eCGT_Grey, eIBT_UInt8_8), eLT_Average)->getRule()->testRule());
    EXPECT_FALSE(makeLvl3(in, createImage2d(19, 10, eCGT_Grey, eIBT_UInt8), eLT_Average)->getRule()->testRule());
    EXPECT_THROW(processor::executeSyncRun(makeLvl3(in, createImage2d(19, 11, eCGT_Grey, eIBT_Real), eLT_Average)),
                 BaseException);
}

TEST(LightnessImgLvl3, RefusesTheLuminosityOfTooFewChannelsInWordsOfItsOwn)
{
    for (const unsigned long nbChannels : {1UL, 2UL})
    {
        const auto in = createImageUser2d(19, 11, nbChannels, eIBT_UInt8);
        const auto out = test::makeFilledImage<unsigned char>(19, 11, eCGT_Grey, 7);
        const auto run = [&] { processor::executeSyncRun(makeLvl3(in, out, eLT_Luminosity)); };
        EXPECT_THROW(run(), KOVISIPLColorException);
        const std::string text = getError(run);
        EXPECT_NE(text.find("which has " + std::to_string(nbChannels) + " channel"), std::string::npos) << text;
        EXPECT_EQ(test::getPlanes<unsigned char>(*out)[0], std::vector<unsigned char>(209, 7));
    }
}

TEST(LightnessImgLvl1, TakesWhateverNumberTheRulePolicyOfNoRulesLeavesIn)
{
    // without rules, what the rule would have refused is refused by the strips
    const auto processor = LightnessImgLvl1::createProcessor();
    ASSERT_TRUE(processor->init(processor::ePRP_NoRules));
    processor->set<attr::InColorImg>(createImage2d(5, 4, eCGT_Rgb, eIBT_UInt8));
    processor->set<attr::InLightnessType>(eLT_Average);
    processor->set<attr::OutLightImg>(createImage2d(5, 5, eCGT_Grey, eIBT_UInt8));
    EXPECT_THROW(processor::executeSyncRun(processor), BaseException);
}
} // namespace
} // namespace kovis::imaproc::color
