// GPUs as the runtime lists them, over an emulated one, and the rules that follow from a device's properties.
#include "KOVIS/KOVISHardware/ComputerDescription.h"
#include "KOVIS/KOVISHardware/KOVISHardwareLog.h"
#include "KOVIS/KOVISHardware/LauncherInfo.h"
#include "KOVIS/KOVISHardware/deviceRules.h"
#include "support/FakeCudaRuntime.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <latch>
#include <thread>
#include <vector>

namespace kovis::hard
{
namespace
{
// Kernels get the fields in this order, by value.
using gpu::LauncherInfo;
static_assert(offsetof(LauncherInfo, m_nbMultiProcessors) == 0);
static_assert(offsetof(LauncherInfo, m_maxThreadsPerMultiProcessor) == 4);
static_assert(offsetof(LauncherInfo, m_maxThreadsPerBlock) == 8);
static_assert(offsetof(LauncherInfo, m_blockSize2d) == 12);
static_assert(offsetof(LauncherInfo, m_reservedValue) == 16);
static_assert(offsetof(LauncherInfo, m_sizeX) == 24);
static_assert(offsetof(LauncherInfo, m_sizeY) == 32);
static_assert(offsetof(LauncherInfo, m_sizeZ) == 40);
static_assert(offsetof(LauncherInfo, m_sizeC) == 48);
static_assert(offsetof(LauncherInfo, m_sizeT) == 56);
static_assert(sizeof(LauncherInfo) == 64);

class Gpu : public testing::Test
{
protected:
    Gpu() : m_before(gpu::CudaRuntime::exchange(&m_runtime)) {}
    ~Gpu() override { gpu::CudaRuntime::exchange(m_before); }

    test::FakeCudaRuntime m_runtime;

private:
    gpu::CudaRuntime* m_before;
};

TEST_F(Gpu, isDescribedByItsOwnProperties)
{
    m_runtime.m_devices = {{"First", 7, 5, 30, 1024, 128}, {"Second", 8, 6, 82, 1536, 1024}};
    const GpuDescription gpus;
    EXPECT_EQ("", m_runtime.m_calls); // nobody is asked before somebody asks
    ASSERT_EQ(2, gpus.getNbDevices());
    EXPECT_EQ("", gpus.getReasonForNone());
    EXPECT_EQ("Second", gpus.getName(1));
    EXPECT_EQ(30, gpus.getNbMultiProcessors(0));
    EXPECT_EQ(82, gpus.getNbMultiProcessors(1));
    EXPECT_EQ(1536, gpus.getMaxThreadsPerMultiProcessor(1));
    EXPECT_EQ(1024, gpus.getMaxThreadsPerBlock(1));
    EXPECT_EQ(8, gpus.getBlockSize2d(0));
    EXPECT_EQ(16, gpus.getBlockSize2d(1));
    EXPECT_THROW(gpus.getName(-1), KOVISHardwareException);
    try
    {
        gpus.getBlockSize2d(2);
        FAIL() << "nothing was thrown";
    }
    catch (const KOVISHardwareException& e)
    {
        EXPECT_STREQ("There is no GPU 2: this computer has 2 usable GPUs, counted from 0", e.what());
    }
    EXPECT_EQ("countDevices readProperties readProperties ", m_runtime.m_calls); // asked once
}

TEST_F(Gpu, isAskedOnceByManyThreads)
{
    for (int turn = 1; turn <= 50; ++turn)
    {
        const GpuDescription gpus;
        std::latch start(8);
        std::vector<std::thread> threads;
        for (int i = 0; i < 8; ++i)
        {
            threads.emplace_back(
                [&]
                {
                    start.arrive_and_wait();
                    EXPECT_EQ(1, gpus.getNbDevices());
                    EXPECT_EQ("Fake", gpus.getName(0));
                });
        }
        for (std::thread& thread : threads)
        {
            thread.join();
        }
        ASSERT_EQ(turn, m_runtime.getNbCalls("countDevices"));
    }
}

TEST_F(Gpu, countsOnlyThoseThatThereIsCodeFor)
{
    m_runtime.m_devices = {{"Old", 5, 2, 10, 2048, 1024}, {"New", 9, 0, 132, 2048, 1024}};
    const GpuDescription gpus;
    ASSERT_EQ(1, gpus.getNbDevices());
    EXPECT_EQ("New", gpus.getName(0));
    EXPECT_EQ(1, gpus.getCudaDevice(0));
}

TEST_F(Gpu, tellsWhyThereIsNone)
{
    m_runtime.m_devices.clear();
    EXPECT_EQ("the CUDA runtime lists no device", GpuDescription().getReasonForNone());
    m_runtime.m_devices = {{"Old", 5, 2, 10, 2048, 1024}};
    EXPECT_EQ("this build has no device code for Old, of compute capability 5.2", GpuDescription().getReasonForNone());
    m_runtime.failAt("readProperties");
    EXPECT_EQ(test::FakeCudaRuntime::g_failure, GpuDescription().getReasonForNone());
    m_runtime.failAt("countDevices");
    const GpuDescription gpus;
    EXPECT_EQ(test::FakeCudaRuntime::g_failure, gpus.getReasonForNone());
    EXPECT_EQ(0, gpus.getNbDevices());
    try
    {
        gpus.getBlockSize2d(3);
        FAIL() << "nothing was thrown";
    }
    catch (const KOVISHardwareException& e)
    {
        EXPECT_EQ(std::string("There is no usable GPU: ") + test::FakeCudaRuntime::g_failure, e.what());
    }
}

TEST_F(Gpu, isTheThreadsDeviceForAWhile)
{
    m_runtime.m_device = 3;
    {
        const gpu::DeviceScope scope(1);
        EXPECT_TRUE(scope.getResult().m_bSuccess);
        EXPECT_EQ(1, m_runtime.m_device);
    }
    EXPECT_EQ(3, m_runtime.m_device);
    for (const char* const call : {"getDevice", "setDevice"})
    {
        m_runtime.failAt(call);
        const gpu::DeviceScope scope(1);
        EXPECT_FALSE(scope.getResult().m_bSuccess);
        EXPECT_STREQ(test::FakeCudaRuntime::g_failure, scope.getResult().m_text);
    }
    EXPECT_EQ(3, m_runtime.m_device);
}

TEST_F(Gpu, givesItsMemoryBack)
{
    {
        gpu::DeviceMemory memory;
        EXPECT_EQ(nullptr, memory.getData());
        ASSERT_TRUE(memory.allocate(100).m_bSuccess);
        EXPECT_NE(nullptr, memory.getData());
        EXPECT_EQ(1U, m_runtime.getNbAllocated());
        gpu::DeviceMemory another;
        m_runtime.failAt("allocate");
        EXPECT_STREQ(test::FakeCudaRuntime::g_failure, another.allocate(100).m_text);
        EXPECT_EQ(nullptr, another.getData());
    }
    EXPECT_EQ(0U, m_runtime.getNbAllocated());
}

// What this computer has is not known here, but each of its devices must be as good as its word.
TEST(RealGpu, isNeverWithoutABlockSide)
{
    const GpuDescription gpus;
    EXPECT_EQ(gpus.getNbDevices() == 0, !gpus.getReasonForNone().empty());
    for (int device = 0; device < gpus.getNbDevices(); ++device)
    {
        EXPECT_GE(gpus.getBlockSize2d(device), 1);
        EXPECT_LE(gpus.getBlockSize2d(device) * gpus.getBlockSize2d(device), gpus.getMaxThreadsPerBlock(device));
        EXPECT_GE(gpus.getNbMultiProcessors(device), 1);
    }
}

TEST(DeviceRules, codeCoversItsFamilyAndPtxAllThatCameLater)
{
    EXPECT_TRUE(gpu::isCovered({52, 75}, 75, 5, 2));
    EXPECT_TRUE(gpu::isCovered({52, 75}, 75, 5, 3));
    EXPECT_FALSE(gpu::isCovered({52, 75}, 75, 5, 0));
    EXPECT_FALSE(gpu::isCovered({52, 75}, 75, 6, 1));
    EXPECT_FALSE(gpu::isCovered({75}, 75, 7, 0));
    EXPECT_TRUE(gpu::isCovered({75}, 75, 7, 5));
    EXPECT_TRUE(gpu::isCovered({75}, 75, 9, 0));
    EXPECT_TRUE(gpu::isCovered({75}, 75, 12, 1));
    EXPECT_TRUE(gpu::isCovered({90}, 0, 9, 0));
    EXPECT_FALSE(gpu::isCovered({90}, 0, 10, 0));
    EXPECT_FALSE(gpu::isCovered({}, 0, 9, 0));
}

TEST(DeviceRules, blocksFitTheDeviceAndFillIt)
{
    EXPECT_EQ(16, gpu::getBlockSide(1024, 2048));
    EXPECT_EQ(16, gpu::getBlockSide(1024, 1024));
    EXPECT_EQ(16, gpu::getBlockSide(1024, 1536));
    EXPECT_EQ(32, gpu::getBlockSide(1024, 4096));
    EXPECT_EQ(32, gpu::getBlockSide(2048, 8192));
    EXPECT_EQ(8, gpu::getBlockSide(255, 2048));
    EXPECT_EQ(8, gpu::getBlockSide(1024, 1023));
    EXPECT_EQ(1, gpu::getBlockSide(1, 1));
    EXPECT_EQ(1, gpu::getBlockSide(0, 0));
    EXPECT_EQ(1, gpu::getBlockSide(1024, 3));
}
} // namespace
} // namespace kovis::hard
