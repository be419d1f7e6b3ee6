#include "ColorTestImages.h"
#include "OpenStep.h"

#include "KOVIS/KOVISImage/CudaImage.h"
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
using test::getStorage;
using test::Step;

TEST(AppendColorChannelImgLvl1, CutsViewsOfUserGeometryIntoSlices)
{
    auto first = createImage(test::makeColorGeometry(5, 4, eCGT_Rgb, eIBT_UInt8, 3, 2));
    planeData<unsigned char>(first, 2, 1, 1)[19] = 77;
    const unsigned char* const address = planeData<unsigned char>(first, 2, 1, 1);
    const auto step = boost::make_shared<Step<AppendColorChannelImgLvl1>>();
    ASSERT_TRUE(step->init());
    step->set<attr::InImg1>(first);
    step->set<attr::InImg2>(createImage(test::makeColorGeometry(5, 4, eCGT_Grey, eIBT_UInt8, 3, 2)));
    step->set<attr::OutColorImg>(createImage(test::makeUserGeometry(5, 4, 4, eIBT_UInt8, 3, 2)));
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

/// Level 1 over an RGB and a grey image that no rule looks at, as a set during the run may bring or take them.
struct UncheckedLvl1
{
    UncheckedLvl1()
    {
        EXPECT_TRUE(m_step->init(processor::ePRP_NoRules));
        m_step->set<attr::InImg1>(createImage2d(5, 4, eCGT_Rgb, eIBT_UInt8));
        m_step->set<attr::InImg2>(createImage2d(5, 4, eCGT_Grey, eIBT_UInt8));
        m_step->set<attr::OutColorImg>(createImageUser2d(5, 4, 4, eIBT_UInt8));
    }

    /// The step fails with this text, and gives nothing.
    void expectFailed(const std::string& text)
    {
        core::ActionProviderPtr provider;
        const auto result = m_step->retrieveProvider(core::BasePriority(), provider);
        EXPECT_EQ(result.getStatus(), processor::eRS_Failed);
        EXPECT_EQ(result.getMessage(), text);
        EXPECT_FALSE(provider);
    }

    boost::shared_ptr<Step<AppendColorChannelImgLvl1>> m_step = boost::make_shared<Step<AppendColorChannelImgLvl1>>();
};

TEST(AppendColorChannelImgLvl1, TellsOfAnImageThatIsTakenAwayDuringTheRun)
{
    const auto tellNull = [](const std::string& name)
    { return "the split of attribute " + name + " was given a null pointer: give it an image"; };
    UncheckedLvl1 withoutFirst;
    withoutFirst.m_step->set<attr::InImg1>(attr::InImg1::StorageType());
    withoutFirst.expectFailed(tellNull("InSubColorImg2d1"));
    UncheckedLvl1 withoutSecond;
    withoutSecond.m_step->set<attr::InImg2>(attr::InImg2::StorageType());
    withoutSecond.expectFailed(tellNull("InSubColorImg2d2"));
    UncheckedLvl1 withoutOutput;
    withoutOutput.m_step->set<attr::OutColorImg>(attr::OutColorImg::StorageType());
    withoutOutput.expectFailed(tellNull("OutColorImg"));
}

/// An input that cannot be shown in another space: the words are those of the view, and not of the split after it.
TEST(AppendColorChannelImgLvl1, TellsWhyAnInputCannotBeSeenByItsChannels)
{
    unsigned char memory[20] = {};
    const auto makeGpuImage = [&memory](unsigned long nbChannels)
    {
        // nothing reads these planes
        return boost::make_shared<CudaImage>(test::makeUserGeometry(5, 4, nbChannels, eIBT_UInt8),
                                             std::vector<void*>(nbChannels, memory), boost::shared_ptr<const void>());
    };
    const auto tell = [](const std::string& channels)
    {
        return "The planes of the image (5 x 4, " + channels +
               ", u8) lie in the memory of a GPU and cannot be used here: give an image in host memory";
    };
    UncheckedLvl1 first;
    first.m_step->set<attr::InImg1>(makeGpuImage(3));
    first.expectFailed(tell("3 channels"));
    UncheckedLvl1 second;
    second.m_step->set<attr::InImg2>(makeGpuImage(1));
    second.expectFailed(tell("1 channel"));
    UncheckedLvl1 both;
    both.m_step->set<attr::InImg1>(makeGpuImage(2));
    both.m_step->set<attr::InImg2>(makeGpuImage(1));
    both.expectFailed(tell("2 channels"));
}

TEST(AppendColorChannelImgLvl1, RefusesSplitsOfUnequalNumbers)
{
    // the dispatcher's own refusal
    UncheckedLvl1 inputs;
    inputs.m_step->set<attr::InImg1>(createImage(test::makeColorGeometry(5, 4, eCGT_Rgb, eIBT_UInt8, 3, 2)));
    inputs.expectFailed("the splits for processor AppendColorChannelImgLvl2 do not fit each other: attribute InSubColorImg2d1 is "
                        "cut into 6 pieces, attribute InSubColorImg2d2 into 1");
    UncheckedLvl1 output;
    output.m_step->set<attr::OutColorImg>(createImage(test::makeUserGeometry(5, 4, 4, eIBT_UInt8, 1, 2)));
    output.expectFailed("the splits for processor AppendColorChannelImgLvl2 do not fit each other: attribute InSubColorImg2d1 is "
                        "cut into 1 pieces, attribute OutColorImg into 2");
}

TEST(AppendColorChannelImgLvl2, CutsItsImagesIntoStripsOfAllChannels)
{
    const auto step = boost::make_shared<Step<AppendColorChannelImgLvl2>>();
    ASSERT_TRUE(step->init());
    step->set<attr::InSubColorImg2d1>(createImageUser2d(50, 40, 3, eIBT_Int16));
    step->set<attr::InSubColorImg2d2>(createImageUser2d(50, 40, 1, eIBT_Int16));
    step->set<attr::OutColorImg>(createImageUser2d(50, 40, 4, eIBT_Int16));
    EXPECT_TRUE(step->getRule()->testRule());

    const auto dispatcher = test::cutIntoStrips(*step, core::BasePriority(7));
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
