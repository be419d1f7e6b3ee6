#include "ColorTestImages.h"

#include "KOVIS/KOVISBaseProcessing/BaseProcessorDispatcher.h"
#include "KOVIS/KOVISCore/Scheduler.h"
#include "KOVIS/KOVISImage/CudaImage.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImg.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImgLvl2.h"
#include "KOVISIPL/KOVISIPLGlobalMeasure/StatsMsrLvl1.h"
#include "KOVISIPL/KOVISIPLUtility/ConvertImgLvl1.h"

#include <boost/make_shared.hpp>
#include <gtest/gtest.h>

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
    const auto makeOf = [](int space, eImageBufferType type)
    {
        const auto geometry = static_cast<eColorGeometryType>(space);
        return geometry == eCGT_User ? createImageUser2d(7, 5, 2, type) : createImage2d(7, 5, geometry, type);
    };
    for (int source = eCGT_Grey; source <= eCGT_User; ++source)
    {
        for (int target = eCGT_Grey; target <= eCGT_User; ++target)
        {
            if (source == eCGT_Rgb && (target == eCGT_XYZ || target == eCGT_CieLab))
            {
                continue;
            }
            for (const eImageBufferType type : {eIBT_UInt16, eIBT_Real})
            {
                const auto in = makeOf(source, type);
                const auto out = makeOf(target, eIBT_Real);
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

/// An image that lies on a GPU, as far as anyone asks.
test::ImagePtr makeGpuImage(eColorGeometryType space)
{
    static int g_memory = 0;
    return boost::make_shared<CudaImage>(test::makeColorGeometry(7, 5, space, eIBT_Real), std::vector<void*>(3, &g_memory),
                                         boost::shared_ptr<const void>());
}

void expectFailure(const processor::RetrievalResult& result, const std::string& attribute, const std::string& reason)
{
    EXPECT_EQ(result.getStatus(), 2);
    EXPECT_NE(result.getMessage().find(attribute), std::string::npos) << result.getMessage();
    EXPECT_NE(result.getMessage().find(reason), std::string::npos) << result.getMessage();
}

/// What a processor of level 1 or 2 answers to an image that its splits cannot cut: the split's own words, which name the
/// attribute of the next level.
template <class TInput, class TOutput, class TProcessor, class TRetrieve>
void expectFailures(TProcessor& processor, const std::string& input, const std::string& output, const TRetrieve& retrieve)
{
    const auto good = createImage2d(7, 5, eCGT_Rgb, eIBT_Real);
    core::ActionProviderPtr provider;
    processor.template set<TInput>(good);
    processor.template set<TOutput>(makeGpuImage(eCGT_HSV));
    expectFailure(retrieve(provider), output, "lies on a GPU");
    processor.template set<TOutput>(test::ImagePtr());
    expectFailure(retrieve(provider), output, "null pointer");
    processor.template set<TOutput>(createImage2d(7, 5, eCGT_HSV, eIBT_Real));
    processor.template set<TInput>(makeGpuImage(eCGT_Rgb));
    expectFailure(retrieve(provider), input, "lies on a GPU");
    processor.template set<TInput>(test::ImagePtr());
    expectFailure(retrieve(provider), input, "null pointer");
    EXPECT_FALSE(provider);
}

TEST_F(ThreeStages, AnswerStatus2WithTheMessageOfWhatFailed)
{
    const auto steps = boost::make_shared<Steps>();
    ASSERT_TRUE(steps->init());
    steps->set<attr::InColorConversionTransform>(attr::createColorConversionTransform(eCGT_HSV));
    expectFailures<attr::InColorImg, attr::OutColorImg>(*steps, "InSubColorImg2d", "OutSubColorImg2d",
                                                        [&](core::ActionProviderPtr& provider)
                                                        { return steps->retrieveFirstProvider(m_priority, provider); });

    // the third step reads the working image, which is not there
    const auto converting = makeSteps(createImage2d(7, 5, eCGT_Rgb, eIBT_Real), createImage2d(7, 5, eCGT_XYZ, eIBT_Real));
    expectFailure(converting->retrieveThirdProvider(m_priority, m_provider), "InSubColorImg2d", "null pointer");
    EXPECT_FALSE(m_provider);
}

using ProvideProcessor = processor::RetrievalResult (ColorConvertImgLvl1::*)(const boost::shared_ptr<core::BaseAction>&,
                                                                             const core::BasePriority&, core::ActionProviderPtr&);

/// Defines the function that gives provideProcessor, which no step calls with what it refuses.
template <ProvideProcessor Member>
struct ProvideProcessorAccess
{
    friend ProvideProcessor getProvideProcessor() { return Member; }
};
ProvideProcessor getProvideProcessor();
template struct ProvideProcessorAccess<&ColorConvertImgLvl1::provideProcessor>;

TEST_F(ThreeStages, AnswerStatus2WhereThereIsNothingToProvide)
{
    Steps steps;
    ASSERT_TRUE(steps.init());
    const boost::shared_ptr<core::BaseAction> none;
    const auto result = (steps.*getProvideProcessor())(none, m_priority, m_provider);
    EXPECT_EQ(result.getStatus(), 2);
    EXPECT_EQ(result.getMessage(), core::SingleActionProvider().init(none).getMessage());
    EXPECT_FALSE(result.getMessage().empty());
    EXPECT_FALSE(m_provider);
}

/// Level 2 with its step at hand.
class Level2Step : public ColorConvertImgLvl2
{
public:
    using ColorConvertImgLvl2::retrieveProvider;
};

TEST(ColorConvertImgLvl2Step, AnswersStatus2WithTheMessageOfWhatFailed)
{
    Level2Step step;
    ASSERT_TRUE(step.init());
    step.set<attr::InColorConversionTransform>(attr::createColorConversionTransform(eCGT_HSV));
    expectFailures<attr::InSubColorImg2d, attr::OutSubColorImg2d>(
        step, "InColorYStrip2d", "OutColorYStrip2d",
        [&](core::ActionProviderPtr& provider) { return step.retrieveProvider(core::BasePriority(), provider); });
}
} // namespace
} // namespace kovis::imaproc::color
