#include "ErrorText.h"
#include "LightnessImages.h"
#include "OpenStep.h"

#include "KOVISIPL/KOVISIPLColor/KOVISIPLColorLog.h"
#include "KOVISIPL/KOVISIPLColor/Processor/LightnessImg/LightnessImgLvl1.h"
#include "KOVISIPL/KOVISIPLColor/Processor/LightnessImg/LightnessImgLvl2.h"
#include "KOVISIPL/KOVISIPLColor/Processor/LightnessImg/LightnessImgLvl3.h"

#include <boost/make_shared.hpp>
#include <gtest/gtest.h>

#include <string>
#include <vector>

// How the levels of the lightness cut their images, and each level by itself.

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
using test::getStorage;
using test::makeVariedImage;

template <class TProcessor>
eLightnessType getFormula(const TProcessor& processor)
{
    return boost::static_pointer_cast<attr::InLightnessType>(processor.getAttribute("InLightnessType"))->getValue();
}

TEST(LightnessImgLvl1, CutsTheInputIntoSlicesAndTheOutputIntoPlanes)
{
    const auto step = boost::make_shared<test::Step<LightnessImgLvl1>>();
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
        const auto piece = test::takePiece<LightnessImgLvl2>(*dispatcher);
        ASSERT_TRUE(piece);
        EXPECT_EQ(piece->getActionPriority(), priority);
        EXPECT_EQ(getFormula(*piece), eLT_Lightness);
        EXPECT_EQ(getStorage<attr::InSubColorImg2d>(*piece, "InSubColorImg2d")->getSizeC(), 3U);
        EXPECT_EQ(getStorage<attr::OutLightImg>(*piece, "OutLightImg")->getSizeC(), 1U);
    }
    EXPECT_FALSE(dispatcher->hasPendingAction());
}

TEST(LightnessImgLvl2, CutsItsImagesIntoStrips)
{
    const auto step = boost::make_shared<test::Step<LightnessImgLvl2>>();
    ASSERT_TRUE(step->init());
    step->set<attr::InSubColorImg2d>(createImage2d(50, 40, eCGT_Rgb, eIBT_UInt8));
    step->set<attr::InLightnessType>(eLT_Luminosity);
    step->set<attr::OutLightImg>(createImage2d(50, 40, eCGT_Grey, eIBT_UInt8));
    const auto dispatcher = test::cutIntoStrips(*step, core::BasePriority(7));
    ASSERT_TRUE(dispatcher);
    EXPECT_EQ(dispatcher->getProcessorName(), "LightnessImgLvl3");
    EXPECT_EQ(test::getSplitNames(*dispatcher),
              (std::vector<std::string>{"InColorYStrip2d", "InLightnessType", "OutLightYStrip2d"}));
    ASSERT_EQ(dispatcher->getNbPieces(), 3U); // 40 rows by 16
    unsigned long nbExact = 0;
    while (dispatcher->hasPendingAction())
    {
        const auto piece = test::takePiece<LightnessImgLvl3>(*dispatcher);
        ASSERT_TRUE(piece);
        EXPECT_EQ(getFormula(*piece), eLT_Luminosity);
        const auto in = getStorage<attr::InColorYStrip2d>(*piece, "InColorYStrip2d");
        const auto out = getStorage<attr::OutLightYStrip2d>(*piece, "OutLightYStrip2d");
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

boost::shared_ptr<LightnessImgLvl2> makeLvl2(const test::ImagePtr& in, const test::ImagePtr& out, eLightnessType type)
{
    const auto processor = LightnessImgLvl2::createProcessor();
    EXPECT_TRUE(processor->init());
    processor->set<attr::InSubColorImg2d>(in);
    processor->set<attr::InLightnessType>(type);
    processor->set<attr::OutLightImg>(out);
    return processor;
}

TEST(LightnessImgLvl2, RunsByItself)
{
    const auto in = makeVariedImage<unsigned short>(test::makeColorGeometry(31, 12, eCGT_Rgb, eIBT_UInt16));
    const auto out = createImage2d(31, 12, eCGT_Grey, eIBT_UInt16);
    processor::executeSyncRun(makeLvl2(in, out, eLT_Luminosity));
    expectLightness<unsigned short>(*in, *out, eLT_Luminosity);
}

/// Only level 1 asks for three channels.
TEST(LightnessImgLvl2, WeighsThreeOfFourChannelsButRefusesTwo)
{
    const auto in = makeVariedImage<short>(createImageUser2d(31, 12, 4, eIBT_Int16)->getGeometry());
    const auto out = createImage2d(31, 12, eCGT_Grey, eIBT_Int16);
    processor::executeSyncRun(makeLvl2(in, out, eLT_Luminosity));
    expectLightness<short>(*in, *out, eLT_Luminosity);

    test::fillVaried<short>(*out);
    const auto run = [&] { processor::executeSyncRun(makeLvl2(createImageUser2d(31, 12, 2, eIBT_Int16), out, eLT_Luminosity)); };
    EXPECT_THROW(run(), KOVISIPLColorException);
    EXPECT_NE(getError(run).find("which has 2 channels"), std::string::npos);
    test::expectVaried<short>(*out);
}

/// Its rule looks at X and Y alone: the strips of the output want one plane.
TEST(LightnessImgLvl2, RefusesAnOutputOfMoreThanOnePlane)
{
    const auto in = createImage2d(5, 4, eCGT_Rgb, eIBT_UInt8);
    const auto expectRefused = [&in](const HomogeneousImageGeometry& geometry, const std::string& words)
    {
        const auto out = makeVariedImage<unsigned char>(geometry);
        const std::string text = getError([&] { processor::executeSyncRun(makeLvl2(in, out, eLT_Average)); });
        EXPECT_NE(text.find("the split of attribute OutLightYStrip2d cuts " + words), std::string::npos) << text;
        test::expectVaried<unsigned char>(*out);
    };
    expectRefused(test::makeColorGeometry(5, 4, eCGT_Rgb, eIBT_UInt8), "images of one channel only");
    expectRefused(test::makeColorGeometry(5, 4, eCGT_Grey, eIBT_UInt8, 2), "2D images only");
    expectRefused(test::makeColorGeometry(5, 4, eCGT_Grey, eIBT_UInt8, 1, 2), "2D images only");
}

boost::shared_ptr<LightnessImgLvl3> makeLvl3(const test::ImagePtr& in, const test::ImagePtr& out, eLightnessType type,
                                             processor::eProcessorRulePolicy rules = processor::ePRP_Rules)
{
    const auto processor = LightnessImgLvl3::createProcessor();
    EXPECT_TRUE(processor->init(rules));
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
    for (const eLightnessType formula : test::g_lightnessFormulas)
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
        const auto out = makeVariedImage<unsigned char>(test::makeColorGeometry(19, 11, eCGT_Grey, eIBT_UInt8));
        const auto run = [&] { processor::executeSyncRun(makeLvl3(in, out, eLT_Luminosity)); };
        EXPECT_THROW(run(), KOVISIPLColorException);
        const std::string text = getError(run);
        EXPECT_NE(text.find("which has " + std::to_string(nbChannels) + " channel"), std::string::npos) << text;
        test::expectVaried<unsigned char>(*out);
    }
}

/// Without rules of its own, level 1 leaves the refusal to level 2, whose pieces have theirs.
TEST(LightnessImgLvl1, LeavesARefusalToItsPiecesWithoutRules)
{
    const auto processor = LightnessImgLvl1::createProcessor();
    ASSERT_TRUE(processor->init(processor::ePRP_NoRules));
    const auto out = makeVariedImage<unsigned char>(test::makeColorGeometry(5, 5, eCGT_Grey, eIBT_UInt8));
    processor->set<attr::InColorImg>(createImage2d(5, 4, eCGT_Rgb, eIBT_UInt8));
    processor->set<attr::InLightnessType>(eLT_Average);
    processor->set<attr::OutLightImg>(out);
    const std::string text = getError([&] { processor::executeSyncRun(processor); });
    EXPECT_NE(text.find("size match"), std::string::npos) << text;
    EXPECT_NE(text.find("InSubColorImg2d"), std::string::npos) << text;
    EXPECT_NE(text.find("OutLightImg"), std::string::npos) << text;
    test::expectVaried<unsigned char>(*out);
}

TEST(LightnessImgLvl3, RefusesAnOutputOfAnotherTypeWithoutRules)
{
    const auto in = createImage2d(19, 11, eCGT_Rgb, eIBT_UInt8);
    const auto out = makeVariedImage<float>(test::makeColorGeometry(19, 11, eCGT_Grey, eIBT_Real));
    const auto lvl3 = makeLvl3(in, out, eLT_Average, processor::ePRP_NoRules);
    EXPECT_FALSE(lvl3->getRule());
    EXPECT_THROW(processor::executeSyncRun(lvl3), KOVISIPLColorException);
    test::expectVaried<float>(*out);
}
} // namespace
} // namespace kovis::imaproc::color
