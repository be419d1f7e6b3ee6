#include "ColorTestImages.h"
#include "OpenStep.h"

#include "KOVIS/KOVISBaseProcessing/BaseProcessorDispatcher.h"
#include "KOVIS/KOVISBaseProcessing/NoSplit.h"
#include "KOVIS/KOVISImageProcessing/ImageSplit.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImg.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImgLvl2.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImgLvl3.h"

#include <boost/make_shared.hpp>
#include <gtest/gtest.h>

namespace kovis::imaproc::color
{
namespace
{
using namespace image;

/// Level 1 with its first step at hand.
class FirstStep : public ColorConvertImgLvl1
{
public:
    using ColorConvertImgLvl1::retrieveFirstProvider;
};

TEST(ColorConvertImgLvl2, CutsItsImagesIntoStripsOfAllChannels)
{
    const auto in = test::makeFilledImage<unsigned char>(50, 40, eCGT_Rgb, 5);
    const auto out = createImage2d(50, 40, eCGT_HSV, eIBT_Real);
    const auto step = boost::make_shared<test::Step<ColorConvertImgLvl2>>();
    ASSERT_TRUE(step->init());
    const boost::shared_ptr<const attr::ColorConversionTransform> transform = attr::createColorConversionTransform(eCGT_HSV);
    step->set<attr::InSubColorImg2d>(in);
    step->set<attr::InColorConversionTransform>(transform);
    step->set<attr::OutSubColorImg2d>(out);
    EXPECT_TRUE(step->getRule()->testRule());

    core::ActionProviderPtr provider;
    // both overloads are there: the framework's with the number of the step, and the class's own
    const auto byFramework = step->retrieveProvider(core::BasePriority(), 0, 1, provider);
    ASSERT_EQ(byFramework.getStatus(), processor::eRS_Provided) << byFramework.getMessage();
    const core::BasePriority priority(7);
    const auto dispatcher = test::cutIntoStrips(*step, priority);
    ASSERT_TRUE(dispatcher);
    EXPECT_EQ(dispatcher->getProcessorName(), "ColorConvertImgLvl3");
    EXPECT_EQ(dispatcher->getProcessorToolTip(), ColorConvertImgLvl3::getToolTipStr());

    EXPECT_EQ(dispatcher->getNbPieces(), 3U); // 40 rows by 16
    EXPECT_EQ(test::getSplitNames(*dispatcher),
              (std::vector<std::string>{"InColorYStrip2d", "InColorConversionTransform", "OutColorYStrip2d"}));

    unsigned long nbExact = 0;
    unsigned long nbPieces = 0;
    while (dispatcher->hasPendingAction())
    {
        const auto piece = test::takePiece<ColorConvertImgLvl3>(*dispatcher);
        ASSERT_TRUE(piece);
        ++nbPieces;
        EXPECT_EQ(piece->getActionPriority(), priority);
        const auto inStrip =
            boost::static_pointer_cast<attr::InColorYStrip2d>(piece->getAttribute("InColorYStrip2d"))->getStorage();
        const auto outStrip =
            boost::static_pointer_cast<attr::OutColorYStrip2d>(piece->getAttribute("OutColorYStrip2d"))->getStorage();
        EXPECT_EQ(inStrip->getSizeC(), 3U);
        EXPECT_EQ(outStrip->getSizeC(), 3U);
        EXPECT_EQ(inStrip->getNbElements() % 64, 0U);
        EXPECT_EQ(inStrip->getNbElements(), outStrip->getNbElements());
        EXPECT_EQ(inStrip->getFirstElement(), nbExact);
        nbExact += inStrip->getNbExactElements();
        // the same transform reaches every strip
        EXPECT_EQ(boost::static_pointer_cast<attr::InColorConversionTransform>(piece->getAttribute("InColorConversionTransform"))
                      ->getStorage(),
                  transform);
    }
    EXPECT_EQ(nbExact, 2000U);
    EXPECT_EQ(nbPieces, 3U);
}

TEST(ColorConvertImgLvl1, CutsItsImagesIntoSlicesOfAllChannels)
{
    const auto step = boost::make_shared<FirstStep>();
    ASSERT_TRUE(step->init());
    step->set<attr::InColorImg>(createImage(test::makeColorGeometry(5, 4, eCGT_Rgb, eIBT_UInt8, 3, 2)));
    step->set<attr::InColorConversionTransform>(attr::createColorConversionTransform(eCGT_HSV));
    step->set<attr::OutColorImg>(createImage(test::makeColorGeometry(5, 4, eCGT_HSV, eIBT_Real, 3, 2)));
    const core::BasePriority priority(7);
    core::ActionProviderPtr provider;
    ASSERT_EQ(step->retrieveFirstProvider(priority, provider).getStatus(), processor::eRS_Provided);
    const auto dispatcher = boost::dynamic_pointer_cast<processor::BaseStaticProcessorDispatcher>(provider);
    ASSERT_TRUE(dispatcher);
    EXPECT_EQ(dispatcher->getProcessorName(), "ColorConvertImgLvl2");
    EXPECT_EQ(test::getSplitNames(*dispatcher),
              (std::vector<std::string>{"InSubColorImg2d", "InColorConversionTransform", "OutSubColorImg2d"}));
    ASSERT_EQ(dispatcher->getNbPieces(), 6U);
    for (int i = 0; i < 6; ++i)
    {
        const auto piece = test::takePiece<ColorConvertImgLvl2>(*dispatcher);
        ASSERT_TRUE(piece);
        EXPECT_EQ(piece->getActionPriority(), priority);
        const BaseImage& slice =
            boost::static_pointer_cast<attr::InSubColorImg2d>(piece->getAttribute("InSubColorImg2d"))->getImage();
        EXPECT_EQ(slice.getSizeC(), 3U);
        EXPECT_EQ(slice.getSizeZ() * slice.getSizeT(), 1U);
    }
    EXPECT_FALSE(dispatcher->hasPendingAction());
}

TEST(ColorConvertImgLvl2, ComparesItsImagesInTwoDimensions)
{
    ColorConvertImgLvl2 processor;
    ASSERT_TRUE(processor.init());
    processor.set<attr::InSubColorImg2d>(createImage2d(5, 4, eCGT_Rgb, eIBT_UInt8));
    processor.set<attr::InColorConversionTransform>(attr::createColorConversionTransform(eCGT_Rgb));
    processor.set<attr::OutSubColorImg2d>(createImage(test::makeColorGeometry(5, 4, eCGT_Rgb, eIBT_UInt8, 2)));
    EXPECT_TRUE(processor.getRule()->testRule());
    processor.set<attr::OutSubColorImg2d>(createImage2d(5, 3, eCGT_Rgb, eIBT_UInt8));
    EXPECT_FALSE(processor.getRule()->testRule());
    processor.set<attr::OutSubColorImg2d>(createImage2d(5, 4, eCGT_HSV, eIBT_UInt8));
    EXPECT_FALSE(processor.getRule()->testRule());
}

TEST(ColorConvertImgLvl2, IsReachedThroughTheFrameworksOwnCall)
{
    const auto image = createImage2d(1, 1, eCGT_Rgb, eIBT_UInt8);
    const auto processor = boost::make_shared<ColorConvertImgLvl2>();
    ASSERT_TRUE(processor->init());
    processor->set<attr::InSubColorImg2d>(image);
    processor->set<attr::InColorConversionTransform>(attr::createColorConversionTransform(eCGT_Grey));
    const auto out = createImage2d(1, 1, eCGT_Grey, eIBT_UInt8);
    planeData<unsigned char>(image, 1)[0] = 200;
    processor->set<attr::OutSubColorImg2d>(out);
    processor::executeSyncRun(processor);
    EXPECT_EQ(planeData<unsigned char>(out)[0], 117); // 0.587 * 200
}

TEST(ColorSplits, KnowTheirProcessorClass)
{
    const ColorConvertImgLvl2 level2;
    const ColorConvertImgLvl3 level3;
    const SubImageSplit<ColorConvertImgLvl2, attr::InSubColorImg2d> subImages;
    EXPECT_TRUE(subImages.checkProcessorType(level2));
    EXPECT_FALSE(subImages.checkProcessorType(level3));
    EXPECT_EQ(subImages.getSplitBaseType(), 0);
    EXPECT_EQ(subImages.getSplitStaticType(), 3);
    EXPECT_EQ(subImages.getAttributeName(), "InSubColorImg2d");
    EXPECT_EQ(subImages.getAttributeToolTip(), attr::InSubColorImg2d::getToolTipStr());
    const ImageYStripColor2dSplit<ColorConvertImgLvl3, const BaseImage, attr::InColorYStrip2d> strips;
    EXPECT_TRUE(strips.checkProcessorType(level3));
    EXPECT_FALSE(strips.checkProcessorType(level2));
    EXPECT_EQ(strips.getSplitBaseType(), 1);
    EXPECT_EQ(strips.getSplitDynamicType(), 4);
    EXPECT_EQ(strips.getImageStripSplitType(), 5);
    const auto transform = processor::dynamicNoSplit<ColorConvertImgLvl3, attr::InColorConversionTransform>(
        boost::shared_ptr<const attr::ColorConversionTransform>());
    EXPECT_EQ(transform->getSplitBaseType(), 1);
    EXPECT_EQ(transform->getSplitDynamicType(), 0);
    EXPECT_EQ(transform->getNbElements(), 1U);
    const auto staticTransform = processor::staticNoSplit<ColorConvertImgLvl2, attr::InColorConversionTransform>(
        boost::shared_ptr<const attr::ColorConversionTransform>());
    EXPECT_EQ(staticTransform->getSplitBaseType(), 0);
    EXPECT_EQ(staticTransform->getSplitStaticType(), 0);
}

TEST(ColorConvertImg, ConvertsAnImageOfOneRowAndOfOnePixel)
{
    for (const unsigned long width : {1UL, 64UL, 65UL})
    {
        const auto out = colorConvertImg(test::makeFilledImage<unsigned char>(width, 1, eCGT_Rgb, 100), eCGT_YCbCr);
        EXPECT_EQ(test::getPlanes<unsigned char>(*out)[0], std::vector<unsigned char>(width, 101));
    }
}
} // namespace
} // namespace kovis::imaproc::color
