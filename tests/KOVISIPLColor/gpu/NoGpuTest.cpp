// The road on a computer without a usable GPU, and the words of the real runtime, if the build has one.
#include "GpuFixture.h"
#include "TripleCheck.h"

#include "KOVIS/KOVISCore/isAvailable.h"
#include "KOVIS/KOVISHardware/CudaRuntime.h"
#include "KOVIS/KOVISImage/CudaImageFactory.h"
#include "KOVIS/KOVISImage/ImageFactory.h"
#include "KOVIS/KOVISImage/KOVISImageLog.h"
#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/AppendColorChannelImgGpuLvl3.h"
#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/AppendColorChannelImgLvl2.h"
#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/Gpu/AppendColorChannelImg_knlLauncher.h"

#include <boost/make_shared.hpp>
#include <gmock/gmock.h>

#ifdef KOVIS_CUDA_PTX_ARCHITECTURE
#include <cuda_runtime_api.h>
#endif

namespace kovis::imaproc::color
{
namespace
{
using testing::HasSubstr;

/// What the runtime says here of any call.
std::string getRuntimeText()
{
#ifdef KOVIS_CUDA_PTX_ARCHITECTURE
    int nbDevices = 0;
    return cudaGetErrorString(cudaGetDeviceCount(&nbDevices));
#else
    return kovis::gpu::g_noDeviceCode;
#endif
}

class NoGpu : public testing::Test
{
protected:
    void SetUp() override
    {
        if (test::getGpus().getNbDevices() > 0)
        {
            GTEST_SKIP() << "this computer has a usable GPU: " << test::getGpus().getName(0);
        }
    }
};

/// Where the runtime itself lists no device: one that there is no code for is in nobody's way.
class NoDevice : public NoGpu
{
protected:
    void SetUp() override
    {
        NoGpu::SetUp();
        int nbDevices = 0;
        if (!IsSkipped() && kovis::gpu::CudaRuntime::getInstance().countDevices(nbDevices) && nbDevices > 0)
        {
            GTEST_SKIP() << "this computer has a GPU that there is no code for";
        }
    }

    static boost::shared_ptr<image::CudaImage> makeStandIn()
    {
        static float g_memory[4] = {};
        return boost::make_shared<image::CudaImage>(image::createImage2d(2, 2, image::eCGT_Grey, image::eIBT_Real)->getGeometry(),
                                                    std::vector<void*>{g_memory}, boost::shared_ptr<const void>());
    }
};

TEST_F(NoGpu, SupportIsOff)
{
    EXPECT_FALSE(core::isGpuSupportActivated());
    core::setGpuSupportActivated(true);
    EXPECT_FALSE(core::isGpuSupportActivated());
    EXPECT_NE("", test::getGpus().getReasonForNone());
}

TEST_F(NoGpu, TheRoadIsNotTakenAndNoAttributeIsLookedAt)
{
    // Before init there are no attributes that could be looked at.
    AppendColorChannelImgLvl2 processor;
    core::ActionProviderPtr provider;
    processor::RetrievalResult result = processor.tryToLaunchGpuProcess(core::BasePriority(), provider);
    EXPECT_EQ(1, static_cast<int>(result.getStatus()));
    EXPECT_EQ("", result.getMessage());
    processor.init(processor::ePRP_Rules);
    const auto spy =
        boost::make_shared<test::SpyImage>(image::createImage2d(2, 2, image::eCGT_Grey, image::eIBT_Real)->getGeometry(), true);
    processor.set<attr::InSubColorImg2d1>(spy);
    processor.set<attr::InSubColorImg2d2>(spy);
    processor.set<attr::OutColorImg>(spy);
    const int nbQuestions = spy->m_nbQuestions;
    result = processor.tryToLaunchGpuProcess(core::BasePriority(), provider);
    EXPECT_EQ(1, static_cast<int>(result.getStatus()));
    EXPECT_EQ("", result.getMessage());
    EXPECT_FALSE(provider);
    EXPECT_EQ(nbQuestions, spy->m_nbQuestions);
}

TEST_F(NoDevice, EveryCallFailsInTheWordsOfTheRuntime)
{
    const std::string text = getRuntimeText();
    EXPECT_NE("no error", text);
    kovis::gpu::CudaRuntime& runtime = kovis::gpu::CudaRuntime::getInstance();
    int number = 0;
    void* pMemory = nullptr;
    char bytes[8] = {};
    kovis::gpu::DeviceProperties properties;
    for (const kovis::gpu::CudaResult& result :
         {runtime.countDevices(number), runtime.readProperties(0, properties), runtime.getDevice(number), runtime.setDevice(0),
          runtime.allocate(8, pMemory), runtime.release(bytes), runtime.fillWithZeros(bytes, 8),
          runtime.copyToDevice(bytes, bytes, 8), runtime.copyToHost(bytes, bytes, 8)})
    {
        EXPECT_FALSE(result.m_bSuccess);
        EXPECT_EQ(text, result.m_text);
    }
    EXPECT_EQ(text, test::getGpus().getReasonForNone());
}

TEST_F(NoDevice, ALaunchFailsInTheWordsOfTheRuntime)
{
    kovis::gpu::LauncherInfo info;
    info.m_blockSize2d = 16;
    info.m_sizeX = info.m_sizeY = info.m_sizeZ = info.m_sizeC = info.m_sizeT = 1;
    const kovis::gpu::CudaResult result =
        gpu::AppendColorChannelImg_knlLauncher<float, int, short>(&info, 1, 1, nullptr, nullptr, nullptr);
    EXPECT_FALSE(result.m_bSuccess);
    EXPECT_EQ(getRuntimeText(), result.m_text);
}

TEST_F(NoDevice, Level3TellsTheReason)
{
    const auto processor = boost::make_shared<AppendColorChannelImgGpuLvl3>();
    processor->init(processor::ePRP_Rules);
    processor->set<attr::InSubGpuImg1>(makeStandIn());
    processor->set<attr::InSubGpuImg2>(makeStandIn());
    processor->set<attr::OutSubGpuImg>(makeStandIn());
    try
    {
        processor::executeSyncRun(processor);
        FAIL() << "nothing was thrown";
    }
    catch (const BaseException& e)
    {
        EXPECT_EQ("There is no usable GPU: " + getRuntimeText(), e.what());
    }
}

// What the build holds code for stands in the build, not in the computer.
TEST(DeviceCode, CoversItsArchitecturesAndLaterDevices)
{
    kovis::gpu::CudaRuntime& runtime = kovis::gpu::CudaRuntime::getInstance();
    EXPECT_FALSE(runtime.hasCodeFor(1, 0));
#ifdef KOVIS_CUDA_PTX_ARCHITECTURE
    EXPECT_TRUE(runtime.hasCodeFor(KOVIS_CUDA_PTX_ARCHITECTURE / 10, KOVIS_CUDA_PTX_ARCHITECTURE % 10));
    EXPECT_TRUE(runtime.hasCodeFor(99, 0));
#else
    EXPECT_FALSE(runtime.hasCodeFor(7, 5));
    EXPECT_FALSE(runtime.hasCodeFor(99, 0));
#endif
}

TEST_F(NoDevice, ImagesCannotBeMadeAndTheReasonIsTold)
{
    const auto host = image::createImage2d(2, 2, image::eCGT_Grey, image::eIBT_Real);
    for (const bool bUpload : {true, false})
    {
        try
        {
            bUpload ? image::uploadImage(*host) : image::createCudaImage(host->getGeometry());
            FAIL() << "nothing was thrown";
        }
        catch (const image::KOVISImageException& e)
        {
            EXPECT_EQ("There is no usable GPU: " + getRuntimeText(), e.what());
        }
    }
}
} // namespace
} // namespace kovis::imaproc::color
