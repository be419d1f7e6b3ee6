#include "ColorTestImages.h"
#include "SplitNames.h"

#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/AppendColorChannelImgLvl1.h"
#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/AppendColorChannelImgLvl2.h"
#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/AppendColorChannelImgLvl3.h"

#include <boost/make_shared.hpp>
#include <gtest/gtest.h>

// How the levels of the channel append cut their images.

namespace kovis::imaproc::color
{
namespace
{
using namespace image;
using test::getSplitNames;

/// A level with its step at hand.
template <class T>
class Step : public T
{
public:
    using T::retrieveProvider;
};

template <class TAttribute>
auto getStorage(const processor::BaseProcessor& processor, const std::string& name)
{
    return boost::static_pointer_cast<const TAttribute>(processor.getAttribute(name))->getStorage();
}

TEST(AppendColorChannelImgLvl1, CutsViewsOfUserGeometryIntoSlices)
{
    auto first = createImage(test::makeColorGeometry(5, 4, eCGT_Rgb, eIBT_UInt8, 3, 2));
    planeData<unsigned char>(first, 2, 1, 1)[19] = 77;
    const unsigned char* const address = planeData<unsigned char>(first, 2, 1, 1);
    ColorGeometry four;
    four.initUser(4);
    HomogeneousImageGeometry outGeometry;
    outGeometry.init(VolumeGeometry(3), four, TemporalGeometry(2), 5, 4, eIBT_UInt8);
    const auto step = boost::make_shared<Step<AppendColorChannelImgLvl1>>();
    ASSERT_TRUE(step->init());
    step->set<attr::InImg1>(first);
    step->set<attr::InImg2>(createImage(test::makeColorGeometry(5, 4, eCGT_Grey, eIBT_UInt8, 3, 2)));
    step->set<attr::OutColorImg>(createImage(outGeometry));
    EXPECT_TRUE(step->getRule()->testRule());

    const core::BasePriority priority(7);
    core::ActionProviderPtr provider;
    const auto result = step->retrieveProvider(priority, provider);
    ASSERT_EQ(result.getStatus(), processor::eRS_Provided) << result.getMessage();
    EXPECT_TRUE(result.getMessage().empty());
    const auto dispatcher = boost::dynamic_pointer_cast<processor::BaseStaticProcessorDispatcher>(provider);
    ASSERT_TRUE(dispatcher);
    EXPECT_EQ(dispatcher->getProcessorName(), "AppendColorChannelImgLvl2");
    EXPECT_EQ(dispatcher->getProcessorToolTip(), AppendColorChannelImgLvl2::getToolTipStr());
    EXPECT_EQ(getSplitNames(*dispatcher), (std::vector<std::string>{"InSubColorImg2d1", "InSubColorImg2d2", "OutColorImg"}));
    ASSERT_EQ(dispatcher->getNbPieces(), 6U);

    // the views hold the memory: they outlive the image that they were made from
    step->set<attr::InImg1>(attr::InImg1::StorageType());
    first.reset();
    for (int i = 0; i < 6; ++i)
    {
        const auto piece = test::takePiece<AppendColorChannelImgLvl2>(*dispatcher);
        ASSERT_TRUE(piece);
        EXPECT_EQ(piece->getActionPriority(), priority);
        const auto slice1 = getStorage<attr::InSubColorImg2d1>(*piece, "InSubColorImg2d1");
        const auto slice2 = getStorage<attr::InSubColorImg2d2>(*piece, "InSubColorImg2d2");
        EXPECT_EQ(slice1->getColorGeometryType(), eCGT_User);
        EXPECT_EQ(slice2->getColorGeometryType(), eCGT_User);
        EXPECT_EQ(slice1->getSizeC(), 3U);
        EXPECT_EQ(slice2->getSizeC(), 1U);
        EXPECT_EQ(slice1->getSizeZ(), 1U);
        if (i == 4) // Z 1, T 1
        {
            EXPECT_EQ(planeData<unsigned char>(slice1, 2), address); // no pixel is copied
            EXPECT_EQ(planeData<unsigned char>(slice1, 2)[19], 77);
        }
    }
}

TEST(AppendColorChannelImgLvl1, TellsOfAnImageThatIsTakenAwayDuringTheRun)
{
    const auto step = boost::make_shared<Step<AppendColorChannelImgLvl1>>();
    ASSERT_TRUE(step->init());
    step->set<attr::InImg1>(createImage2d(5, 4, eCGT_Rgb, eIBT_UInt8));
    step->set<attr::OutColorImg>(createImageUser2d(5, 4, 4, eIBT_UInt8));
    core::ActionProviderPtr provider;
    const auto result = step->retrieveProvider(core::BasePriority(), provider);
    EXPECT_EQ(result.getStatus(), processor::eRS_Failed);
    EXPECT_FALSE(result.getMessage().empty());
    EXPECT_FALSE(provider);
}

TEST(AppendColorChannelImgLvl1, RefusesSplitsOfUnequalNumbers)
{
    // as no rule lets them pass: the dispatcher's own refusal
    const auto step = boost::make_shared<Step<AppendColorChannelImgLvl1>>();
    ASSERT_TRUE(step->init(processor::ePRP_NoRules));
    step->set<attr::InImg1>(createImage(test::makeColorGeometry(5, 4, eCGT_Rgb, eIBT_UInt8, 3, 2)));
    step->set<attr::InImg2>(createImage2d(5, 4, eCGT_Rgb, eIBT_UInt8));
    step->set<attr::OutColorImg>(createImageUser2d(5, 4, 6, eIBT_UInt8));
    core::ActionProviderPtr provider;
    const auto result = step->retrieveProvider(core::BasePriority(), provider);
    EXPECT_EQ(result.getStatus(), processor::eRS_Failed);
    EXPECT_NE(result.getMessage().find("InSubColorImg2d1"), std::string::npos) << result.getMessage();
}

TEST(AppendColorChannelImgLvl2, CutsItsImagesIntoStripsOfAllChannels)
{
    const auto step = boost::make_shared<Step<AppendColorChannelImgLvl2>>();
    ASSERT_TRUE(step->init());
    step->set<attr::InSubColorImg2d1>(createImageUser2d(50, 40, 3, eIBT_Int16));
    step->set<attr::InSubColorImg2d2>(createImageUser2d(50, 40, 1, eIBT_Int16));
    step->set<attr::OutColorImg>(createImageUser2d(50, 40, 4, eIBT_Int16));
    EXPECT_TRUE(step->getRule()->testRule());

    processor::setStripHeight(16);
    core::ActionProviderPtr provider;
    const auto result = step->retrieveProvider(core::BasePriority(7), provider);
    processor::setStripHeight(0);
    ASSERT_EQ(result.getStatus(), processor::eRS_Provided) << result.getMessage();
    const auto dispatcher = boost::dynamic_pointer_cast<processor::BaseDynamicProcessorDispatcher>(provider);
    ASSERT_TRUE(dispatcher);
    EXPECT_EQ(dispatcher->getProcessorName(), "AppendColorChannelImgLvl3");
    EXPECT_EQ(getSplitNames(*dispatcher), (std::vector<std::string>{"InColorYStrip2d1", "InColorYStrip2", "OutColorYStrip2d"}));
    EXPECT_EQ(dispatcher->getNbPieces(), 3U);
    unsigned long nbExact = 0;
    for (int i = 0; i < 3; ++i)
    {
        const auto piece = test::takePiece<AppendColorChannelImgLvl3>(*dispatcher);
        ASSERT_TRUE(piece);
        const auto first = getStorage<attr::InColorYStrip2d1>(*piece, "InColorYStrip2d1");
        const auto second = getStorage<attr::InColorYStrip2>(*piece, "InColorYStrip2");
        const auto out = getStorage<attr::OutColorYStrip2d>(*piece, "OutColorYStrip2d");
        EXPECT_EQ(first->getSizeC(), 3U);
        EXPECT_EQ(second->getSizeC(), 1U);
        EXPECT_EQ(out->getSizeC(), 4U);
        EXPECT_EQ(out->getNbElements() % 64, 0U);
        EXPECT_EQ(first->getNbElements(), out->getNbElements());
        EXPECT_EQ(second->getNbElements(), out->getNbElements());
        EXPECT_EQ(out->getFirstElement(), nbExact);
        nbExact += out->getNbExactElements();
    }
    EXPECT_EQ(nbExact, 2000U);
}
} // namespace
} // namespace kovis::imaproc::color
