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

TEST_F(NoGpu, SupportIsOff)
{
    EXPECT_FALSE(core::isGpuSupportActivated());
    core::setGpuSupportActivated(true);
    EXPECT_FALSE(core::isGpuSupportActivated());
    EXPECT_NE("", test::getGpus().getReasonForNone());
}

TEST_F(NoGpu, TheRoadIsNotTakenAndNoAttributeIsLookedAt)
{
    // Before init there are no attributes that could be looked at; afterwards one that says it lies on a GPU is no reason for.
    AppendColorChannelImgLvl2 processor;
    core::ActionProviderPtr provider;
    processor::RetrievalResult result = processor.tryToLaunchGpuProcess(core::BasePriority(), provider);
    EXPECT_EQ(1, static_cast<int>(result.getStatus()));
    EXPECT_EQ("", result.getMessage());
    processor.init(processor::ePRP_Rules);
    float memory[4] = {};
    const auto geometry = image::createImage2d(2, 2, image::eCGT_Grey, image::eIBT_Real)->getGeometry();
    const auto standIn =
        boost::make_shared<image::CudaImage>(geometry, std::vector<void*>{memory}, boost::shared_ptr<const void>());
    processor.set<attr::InSubColorImg2d1>(standIn);
    processor.set<attr::InSubColorImg2d2>(image::createImage(geometry));
    processor.set<attr::OutColorImg>(standIn);
    result = processor.tryToLaunchGpuProcess(core::BasePriority(), provider);
    EXPECT_EQ(1, static_cast<int>(result.getStatus()));
    EXPECT_EQ("", result.getMessage());
    EXPECT_FALSE(provider);
}

TEST_F(NoGpu, EveryCallFailsInTheWordsOfTheRuntime)
{
    const std::string text = getRuntimeText();
    EXPECT_NE("no error", text);
    kovis::gpu::CudaRuntime& runtime = kovis::gpu::CudaRuntime::getInstance();
    int number = 0;
    void* pMemory = nullptr;
    char bytes[8] = {};
    kovis::gpu::DeviceProperties properties;
    for (const kovis::gpu::CudaResult& result :
         {runtime.countDevices(number), runtime.readProperties(0, properties), runtime.setDevice(0), runtime.allocate(8, pMemory),
          runtime.fillWithZeros(bytes, 8), runtime.copyToDevice(bytes, bytes, 8), runtime.copyToHost(bytes, bytes, 8)})
    {
        EXPECT_FALSE(result.m_bSuccess);
        EXPECT_EQ(text, result.m_text);
    }
    EXPECT_EQ(text, test::getGpus().getReasonForNone());
}

TEST_F(NoGpu, ALaunchFailsInTheWordsOfTheRuntime)
{
    kovis::gpu::LauncherInfo info;
    info.m_blockSize2d = 16;
    info.m_sizeX = info.m_sizeY = info.m_sizeZ = info.m_sizeC = info.m_sizeT = 1;
    const kovis::gpu::CudaResult result =
        gpu::AppendColorChannelImg_knlLauncher<float, int, short>(&info, 1, 1, nullptr, nullptr, nullptr);
    EXPECT_FALSE(result.m_bSuccess);
    EXPECT_EQ(getRuntimeText(), result.m_text);
}

TEST_F(NoGpu, ImagesCannotBeMadeAndTheReasonIsTold)
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
