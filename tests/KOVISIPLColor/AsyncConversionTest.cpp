#include "ColorTestImages.h"

#include "KOVIS/KOVISBaseProcessing/BaseProcessorDispatcher.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImg.h"

#include <boost/make_shared.hpp>
#include <gtest/gtest.h>

#include <atomic>
#include <thread>

// Conversions that are cancelled, or whose images are set anew while they run.

namespace kovis::imaproc::color
{
namespace
{
using namespace image;

const std::string g_cancelled = "Action kovis::imaproc::color::ColorConvertImgLvl1 was cancelled";

/// What a cancelled conversion looks like afterwards.
void expectCancelled(const boost::shared_ptr<ColorConvertImgLvl1>& processor, const BoolResult& waited)
{
    EXPECT_FALSE(waited);
    EXPECT_EQ(waited.getMessage(), g_cancelled);
    const BoolResult result = processor->getRunResult();
    EXPECT_FALSE(result);
    EXPECT_EQ(result.getMessage(), g_cancelled);
    EXPECT_LT(processor->getProgress(), 1.0);
    EXPECT_FALSE(getAsyncProcessorOutput(processor)); // the image that the run had made is taken out
}

TEST(ColorConvertImgCancel, EndsAsCancelledOrDoneAndIsFitForTheNextRun)
{
    const auto in = test::makeFilledImage<unsigned char>(1500, 1000, eCGT_Rgb, 10);
    const auto expected = test::getPlanes<float>(*colorConvertImg(in, eCGT_HSV));
    for (int i = 0; i < 8; ++i)
    {
        const auto processor = colorConvertImg_async(in, eCGT_HSV);
        if (i % 2 != 0)
        {
            std::this_thread::yield(); // some later than others: how far a run has come is nobody's to say
        }
        processor->requestCancellation();
        const BoolResult waited = processor->wait();
        if (processor->getState() == core::eActionState::cancelled)
        {
            expectCancelled(processor, waited);
        }
        else
        {
            EXPECT_EQ(processor->getState(), core::eActionState::done);
            EXPECT_TRUE(waited) << waited.getMessage();
            ASSERT_TRUE(getAsyncProcessorOutput(processor));
            EXPECT_EQ(test::getPlanes<float>(*getAsyncProcessorOutput(processor)), expected);
        }
        // without an end of its own: the cancellation was of the run before
        ASSERT_TRUE(processor->run(core::eST_Synchronous));
        EXPECT_EQ(processor->getState(), core::eActionState::done);
        ASSERT_TRUE(getAsyncProcessorOutput(processor));
        EXPECT_EQ(test::getPlanes<float>(*getAsyncProcessorOutput(processor)), expected);
    }
}

/// Asks for the end of its own run at one of its steps, where the run cannot have ended yet.
class Cancelling : public ColorConvertImgLvl1
{
public:
    unsigned int m_step = 3;

protected:
    processor::RetrievalResult retrieveFirstProvider(const core::BasePriority& priority,
                                                     core::ActionProviderPtr& provider) override
    {
        cancelAt(0);
        return ColorConvertImgLvl1::retrieveFirstProvider(priority, provider);
    }
    processor::RetrievalResult retrieveSecondProvider(const core::BasePriority& priority,
                                                      core::ActionProviderPtr& provider) override
    {
        const auto result = ColorConvertImgLvl1::retrieveSecondProvider(priority, provider);
        cancelAt(1);
        return result;
    }

private:
    void cancelAt(unsigned int step)
    {
        if (m_step == step)
        {
            requestCancellation();
        }
    }
};

TEST(ColorConvertImgCancel, AtTheFirstStepAlwaysEndsAsCancelled)
{
    const auto in = test::makeFilledImage<unsigned char>(50, 40, eCGT_Rgb, 10);
    const auto processor = boost::make_shared<Cancelling>();
    ASSERT_TRUE(processor->init());
    processor->set<attr::InColorImg>(in);
    processor->set<attr::InColorConversionTransform>(attr::createColorConversionTransform(eCGT_HSV));
    processor->m_step = 0;
    ASSERT_TRUE(processor->run(core::eST_Asynchronous));
    const BoolResult waited = processor->wait();
    EXPECT_EQ(processor->getState(), core::eActionState::cancelled);
    expectCancelled(processor, waited);

    processor->m_step = 3;
    ASSERT_TRUE(processor->run(core::eST_Synchronous));
    EXPECT_EQ(processor->getStorage<attr::OutColorImg>()->getColorGeometryType(), eCGT_HSV);
}

TEST(ColorConvertImgCancel, LeavesNoWorkingImageBehind)
{
    const auto processor = boost::make_shared<Cancelling>();
    ASSERT_TRUE(processor->init());
    processor->set<attr::InColorConversionTransform>(attr::createColorConversionTransform(eCGT_XYZ));
    processor->m_step = 1;
    for (const unsigned long sizeX : {5UL, 9UL})
    {
        processor->set<attr::InColorImg>(test::makeFilledImage<unsigned char>(sizeX, 4, eCGT_Rgb, 100));
        ASSERT_TRUE(processor->run(core::eST_Asynchronous));
        const BoolResult waited = processor->wait();
        EXPECT_EQ(processor->getState(), core::eActionState::cancelled);
        expectCancelled(processor, waited);
        EXPECT_FALSE(processor->getAttribute("OutOptWk1RealImg")->isInitialised());
    }
}

/// Runs short conversions while another thread gives their processor images, and takes them away.
void runWhileImagesAreSet(eColorGeometryType target)
{
    const std::vector<test::ImagePtr> inputs{test::makeFilledImage<unsigned char>(20, 10, eCGT_Rgb, 10), test::ImagePtr(),
                                             test::makeFilledImage<float>(7, 5, eCGT_Rgb, 20.0F)};
    const std::vector<test::ImagePtr> outputs{test::ImagePtr(), createImage2d(20, 10, target, eIBT_Real),
                                              createImage2d(7, 5, target, eIBT_UInt8)};
    const auto processor = boost::make_shared<ColorConvertImgLvl1>();
    ASSERT_TRUE(processor->init());
    processor->set<attr::InColorConversionTransform>(attr::createColorConversionTransform(target));

    std::atomic<bool> bEnd = false;
    std::atomic<int> nbSets = 0;
    std::thread setter(
        [&]
        {
            for (std::size_t i = 0; !bEnd; ++i)
            {
                processor->set<attr::InColorImg>(inputs[i % 3]);
                processor->set<attr::OutColorImg>(outputs[i / 3 % 3]);
                ++nbSets;
            }
        });
    while (nbSets == 0)
    {
        std::this_thread::yield();
    }
    const int nbSetsBefore = nbSets;
    for (int i = 0; i < 300 || nbSets < nbSetsBefore + 300; ++i)
    {
        const BoolResult started = processor->run(core::eST_Asynchronous);
        EXPECT_TRUE(started) << started.getMessage();
        const BoolResult waited = processor->wait();
        const core::eActionState state = processor->getState();
        EXPECT_TRUE(waited ? state == core::eActionState::done : state == core::eActionState::failed) << waited.getMessage();
        EXPECT_EQ(waited.getMessage().empty(), state == core::eActionState::done) << waited.getMessage();
    }
    bEnd = true;
    setter.join();
    // what has been set at last is what the next run takes
    processor->getAttribute("OutOptWk1RealImg")->clear();
    processor->set<attr::InColorConversionTransform>(attr::createColorConversionTransform(eCGT_HSV));
    processor->set<attr::InColorImg>(inputs[0]);
    const auto out = createImage2d(20, 10, eCGT_HSV, eIBT_Real);
    processor->set<attr::OutColorImg>(out);
    processor::executeSyncRun(processor);
    EXPECT_EQ(test::getPlanes<float>(*out), test::getPlanes<float>(*colorConvertImg(inputs[0], eCGT_HSV)));
}

TEST(ColorConvertImgAsync, BearsImagesThatAreSetWhileItRuns)
{
    runWhileImagesAreSet(eCGT_HSV);
}

TEST(ColorConvertImgAsync, BearsImagesThatAreSetWhileItMeasuresThem)
{
    runWhileImagesAreSet(eCGT_XYZ);
}
} // namespace
} // namespace kovis::imaproc::color
