#include "ColorTestImages.h"

#include "KOVIS/KOVISBaseProcessing/BaseProcessorDispatcher.h"
#include "KOVIS/KOVISCore/Scheduler.h"
#include "KOVISIPL/KOVISIPLColor/KOVISIPLColorLog.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImg.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImgLvl2.h"
#include "KOVISIPL/KOVISIPLGlobalMeasure/StatsMsrLvl1.h"
#include "KOVISIPL/KOVISIPLUtility/ConvertImgLvl1.h"
#include "support/RecordingAppender.h"

#include <boost/make_shared.hpp>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace kovis::imaproc::color
{
namespace
{
using namespace image;

/// Level 1 with its three steps at hand, so that they can be asked for in their order and looked at.
class Steps : public ColorConvertImgLvl1
{
public:
    using ColorConvertImgLvl1::retrieveFirstProvider;
    using ColorConvertImgLvl1::retrieveSecondProvider;
    using ColorConvertImgLvl1::retrieveThirdProvider;

    boost::shared_ptr<attr::OutOptWk1RealImg> getWorkingAttribute()
    {
        return boost::static_pointer_cast<attr::OutOptWk1RealImg>(getAttribute("OutOptWk1RealImg"));
    }
};

boost::shared_ptr<Steps> makeSteps(const test::ImagePtr& in, const test::ImagePtr& out)
{
    const auto steps = boost::make_shared<Steps>();
    EXPECT_TRUE(steps->init());
    steps->set<attr::InColorImg>(in);
    steps->set<attr::InColorConversionTransform>(attr::createColorConversionTransform(out->getColorGeometryType()));
    steps->set<attr::OutColorImg>(out);
    return steps;
}

/// The first action of a provider.
boost::shared_ptr<core::BaseAction> pull(const core::ActionProviderPtr& provider)
{
    boost::shared_ptr<core::BaseActionRequest> request;
    boost::shared_ptr<BaseSerializationObject> data;
    bool bGiven = false;
    EXPECT_TRUE(provider->queryNextAction(core::BaseRequestOrigin(), request, bGiven, data));
    return bGiven ? request->getAction() : boost::shared_ptr<core::BaseAction>();
}

const void* getAddress(const BaseImage& image)
{
    return static_cast<const HostImage&>(image).getPlane(0, 0, 0).m_pData;
}

/// That the provider cuts these two images for level 2.
void expectLvl2(const core::ActionProviderPtr& provider, const BaseImage& in, const BaseImage& out,
                const ColorConvertImgLvl1& parent)
{
    const auto dispatcher = boost::dynamic_pointer_cast<processor::BaseStaticProcessorDispatcher>(provider);
    ASSERT_TRUE(dispatcher);
    EXPECT_EQ(dispatcher->getProcessorName(), "ColorConvertImgLvl2");
    const auto piece = boost::dynamic_pointer_cast<ColorConvertImgLvl2>(pull(provider));
    ASSERT_TRUE(piece);
    EXPECT_EQ(getAddress(boost::static_pointer_cast<attr::InSubColorImg2d>(piece->getAttribute("InSubColorImg2d"))->getImage()),
              getAddress(in));
    EXPECT_EQ(getAddress(boost::static_pointer_cast<attr::OutSubColorImg2d>(piece->getAttribute("OutSubColorImg2d"))->getImage()),
              getAddress(out));
    // the same transform, not a copy
    const auto getNode = [](const processor::BaseProcessor& processor)
    {
        return boost::static_pointer_cast<attr::InColorConversionTransform>(processor.getAttribute("InColorConversionTransform"))
            ->getStorage();
    };
    EXPECT_EQ(getNode(*piece), getNode(parent));
}

class ThreeStages : public testing::Test
{
protected:
    core::BasePriority m_priority{3};
    core::ActionProviderPtr m_provider;
};

TEST_F(ThreeStages, MeasureConvertAndReadTheWorkingImageForOtherTypesThanFloat)
{
    for (const eColorGeometryType target : {eCGT_XYZ, eCGT_CieLab})
    {
        const auto in = test::makeFilledImage<unsigned char>(7, 5, eCGT_Rgb, 250);
        const auto out = createImage2d(7, 5, target, eIBT_Real);
        const auto steps = makeSteps(in, out);

        ASSERT_EQ(steps->retrieveFirstProvider(m_priority, m_provider).getStatus(), processor::eRS_Provided);
        ASSERT_TRUE(boost::dynamic_pointer_cast<core::SingleActionProvider>(m_provider));
        const auto measure = boost::dynamic_pointer_cast<glbmsr::StatsMsrLvl1>(pull(m_provider));
        ASSERT_TRUE(measure);
        EXPECT_EQ(measure->getActionPriority(), m_priority);
        EXPECT_EQ(boost::static_pointer_cast<attr::InImg>(measure->getAttribute("InImg"))->getStorage(), in);
        processor::executeSyncRun(measure);
        EXPECT_FALSE(steps->getWorkingAttribute()->isInitialised());

        ASSERT_EQ(steps->retrieveSecondProvider(m_priority, m_provider).getStatus(), processor::eRS_Provided);
        const auto conversion = boost::dynamic_pointer_cast<util::ConvertImgLvl1>(pull(m_provider));
        ASSERT_TRUE(conversion);
        EXPECT_EQ(conversion->getActionPriority(), m_priority);
        const auto working = steps->getWorkingAttribute()->getStorage();
        ASSERT_TRUE(working);
        EXPECT_EQ(working->getBufferType(), eIBT_Real);
        EXPECT_EQ(working->getColorGeometryType(), eCGT_Rgb);
        EXPECT_EQ(boost::static_pointer_cast<attr::OutImg>(conversion->getAttribute("OutImg"))->getStorage(), working);
        processor::executeSyncRun(conversion);
        EXPECT_EQ(test::getPlanes<float>(*working),
                  test::getPlanes<float>(*test::makeFilledImage<float>(7, 5, eCGT_Rgb, 250.0F)));

        ASSERT_EQ(steps->retrieveThirdProvider(m_priority, m_provider).getStatus(), processor::eRS_Provided);
        expectLvl2(m_provider, *working, *out, *steps);
        EXPECT_EQ(steps->getWorkingAttribute()->getStorage(), working);
    }
}

TEST_F(ThreeStages, ConvertAFloatImageTwiceTheSecondTimeFromTheUnwrittenWorkingImage)
{
    for (const eColorGeometryType target : {eCGT_XYZ, eCGT_CieLab})
    {
        const auto in = test::makeFilledImage<float>(7, 5, eCGT_Rgb, 100.5F);
        const auto out = createImage2d(7, 5, target, eIBT_UInt8);
        const auto steps = makeSteps(in, out);

        ASSERT_EQ(steps->retrieveFirstProvider(m_priority, m_provider).getStatus(), processor::eRS_Provided);
        core::runProvider(m_provider);
        ASSERT_EQ(steps->retrieveSecondProvider(m_priority, m_provider).getStatus(), processor::eRS_Provided);
        expectLvl2(m_provider, *in, *out, *steps);
        ASSERT_EQ(steps->retrieveThirdProvider(m_priority, m_provider).getStatus(), processor::eRS_Provided);
        const auto working = steps->getWorkingAttribute()->getStorage();
        expectLvl2(m_provider, *working, *out, *steps);
        EXPECT_EQ(test::getPlanes<float>(*working), std::vector<std::vector<float>>(3, std::vector<float>(35, 0.0F)));
    }
}

TEST_F(ThreeStages, GoStraightToLevel2ForEveryOtherPair)
{
    for (int source = 0; source < 10; ++source)
    {
        for (int target = 0; target < 10; ++target)
        {
            if (source == eCGT_Rgb && (target == eCGT_XYZ || target == eCGT_CieLab))
            {
                continue;
            }
            for (const eImageBufferType type : {eIBT_UInt16, eIBT_Real})
            {
                const auto in = createImage2d(7, 5, static_cast<eColorGeometryType>(source), type);
                const auto out = createImage2d(7, 5, static_cast<eColorGeometryType>(target), eIBT_Real);
                const auto steps = makeSteps(in, out);
                ASSERT_EQ(steps->retrieveFirstProvider(m_priority, m_provider).getStatus(), processor::eRS_Provided);
                expectLvl2(m_provider, *in, *out, *steps);
                const core::ActionProviderPtr kept = m_provider;
                const auto second = steps->retrieveSecondProvider(m_priority, m_provider);
                EXPECT_EQ(second.getStatus(), 1);
                EXPECT_EQ(second.getMessage(), "");
                const auto third = steps->retrieveThirdProvider(m_priority, m_provider);
                EXPECT_EQ(third.getStatus(), 1);
                EXPECT_EQ(third.getMessage(), "");
                EXPECT_EQ(m_provider, kept);
                EXPECT_FALSE(steps->getWorkingAttribute()->isInitialised());
            }
        }
    }
}

TEST_F(ThreeStages, ReplaceAWorkingImageOfTheCaller)
{
    const auto in = test::makeFilledImage<unsigned char>(7, 5, eCGT_Rgb, 1);
    const auto steps = makeSteps(in, createImage2d(7, 5, eCGT_XYZ, eIBT_Real));
    const auto given = test::makeFilledImage<float>(7, 5, eCGT_Rgb, 7.0F);
    steps->getWorkingAttribute()->init(given);
    EXPECT_TRUE(steps->getRule()->testRule());
    steps->retrieveFirstProvider(m_priority, m_provider);
    core::runProvider(m_provider);
    EXPECT_EQ(steps->getWorkingAttribute()->getStorage(), given);
    steps->retrieveSecondProvider(m_priority, m_provider);
    EXPECT_NE(steps->getWorkingAttribute()->getStorage(), given);
    core::runProvider(m_provider);
    EXPECT_EQ(planeData<float>(given)[0], 7.0F);

    // the size rule looks at it all the same
    steps->getWorkingAttribute()->init(createImage2d(7, 6, eCGT_Rgb, eIBT_Real));
    EXPECT_FALSE(steps->getRule()->testRule());
    steps->getWorkingAttribute()->init(createImage2d(7, 5, eCGT_Grey, eIBT_Real));
    EXPECT_FALSE(steps->getRule()->testRule());
}

/// The message with which the conversion to XYZ ends, and whether the output was left alone.
template <class T>
std::string convertToXYZ(const test::ImagePtr& in)
{
    const auto out = test::makeFilledImage<float>(in->getSizeX(), in->getSizeY(), eCGT_XYZ, -3.0F);
    const auto before = test::getPlanes<float>(*out);
    std::string message = "converted";
    try
    {
        colorConvertImg(in, eCGT_XYZ, out);
    }
    catch (const KOVISIPLColorException& e)
    {
        message = e.what();
    }
    EXPECT_EQ(test::getPlanes<float>(*out), before);
    return message;
}

const std::string g_rangeMessage = "Error: the image values does not match the range [0, 255]";

TEST(RangeTest, RefusesValuesOutside0To255AndWritesNothing)
{
    const auto in = test::makeFilledImage<unsigned short>(33, 21, eCGT_Rgb, 100);
    planeData<unsigned short>(in, 2)[33 * 21 - 1] = 256;
    const test::Recording recording(getKOVISIPLColorLogger());
    EXPECT_EQ(convertToXYZ<unsigned short>(in), g_rangeMessage);
    ASSERT_EQ(recording.getEvents().size(), 1U);
    EXPECT_EQ(recording.getEvents()[0].m_level, 40000);
    EXPECT_NE(recording.getEvents()[0].m_message.find(g_rangeMessage), std::string::npos);

    const auto negative = test::makeFilledImage<short>(33, 21, eCGT_Rgb, 100);
    planeData<short>(negative, 0)[17] = -1;
    EXPECT_EQ(convertToXYZ<short>(negative), g_rangeMessage);

    for (const float value :
         {255.00002F, -1e-30F, std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity()})
    {
        const auto real = test::makeFilledImage<float>(33, 21, eCGT_Rgb, 100.0F);
        planeData<float>(real, 1)[500] = value;
        EXPECT_EQ(convertToXYZ<float>(real), g_rangeMessage) << value;
    }
}

TEST(RangeTest, IncludesItsBoundsAndNeverRefusesUnsignedChar)
{
    // the kernels that follow are of a later version; the range test has passed when they are asked for
    const auto in = test::makeFilledImage<float>(5, 5, eCGT_Rgb, 0.0F);
    planeData<float>(in, 1)[3] = 255.0F;
    EXPECT_NE(convertToXYZ<float>(in), g_rangeMessage);
    EXPECT_NE(convertToXYZ<unsigned char>(test::makeFilledImage<unsigned char>(5, 5, eCGT_Rgb, 253)), g_rangeMessage);
}

TEST(RangeTest, SeesNothingPastThePlanes)
{
    const auto in = test::makeFilledImage<float>(3, 3, eCGT_Rgb, 100.0F);
    for (unsigned long c = 0; c < 3; ++c)
    {
        std::fill_n(planeData<float>(in, c) + 9, 64, 1e9F);
    }
    EXPECT_NE(convertToXYZ<float>(in), g_rangeMessage);
}

TEST(RangeTest, IsNotThereForLuvAndRgba)
{
    for (const auto& [source, target] :
         {std::pair(eCGT_Rgb, eCGT_CieLuv), std::pair(eCGT_Rgba, eCGT_XYZ), std::pair(eCGT_Rgba, eCGT_CieLab)})
    {
        const auto in = test::makeFilledImage<float>(5, 5, source, 1000.0F);
        try
        {
            colorConvertImg(in, target);
        }
        catch (const KOVISIPLColorException& e)
        {
            EXPECT_NE(std::string(e.what()), g_rangeMessage);
        }
    }
}
} // namespace
} // namespace kovis::imaproc::color
