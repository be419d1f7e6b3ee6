// What only an emulated device shows: what the launchers are told, and that a call that fails ends the road in its own words and
// leaves no memory behind.
#include "EmulatedLauncher.h"
#include "support/FakeCudaRuntime.h"

#include "KOVIS/KOVISBaseProcessing/KOVISBaseProcessingLog.h"
#include "KOVIS/KOVISImage/CudaImageFactory.h"
#include "KOVIS/KOVISImage/ImageFactory.h"
#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/AppendColorChannelImgGpuLvl3.h"

#include <boost/make_shared.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

namespace kovis::imaproc::color
{
namespace
{
using testing::HasSubstr;

class EmulatedGpu : public testing::Test
{
protected:
    void TearDown() override
    {
        m_runtime.failNowhere();
        test::getEmulatedLaunch().m_failure = nullptr;
        EXPECT_EQ(0U, m_runtime.getNbAllocated());
    }

    static boost::shared_ptr<image::BaseImage> makeImage(unsigned long nbChannels)
    {
        image::ColorGeometry color;
        color.initUser(nbChannels);
        image::HomogeneousImageGeometry geometry;
        geometry.init(image::VolumeGeometry(2), color, image::TemporalGeometry(3), 30, 20, image::eIBT_Real);
        return image::createImage(geometry);
    }

    static void run()
    {
        const auto processor = boost::make_shared<AppendColorChannelImgGpuLvl3>();
        processor->init(processor::ePRP_Rules);
        processor->set<attr::InSubGpuImg1>(image::uploadImage(*makeImage(4)));
        processor->set<attr::InSubGpuImg2>(image::uploadImage(*makeImage(1)));
        processor->set<attr::OutSubGpuImg>(image::createCudaImage(makeImage(5)->getGeometry()));
        processor::executeSyncRun(processor);
    }

    static std::string getError(const std::function<void()>& call)
    {
        try
        {
            call();
        }
        catch (const BaseException& e)
        {
            return e.what();
        }
        return "nothing was thrown";
    }

    test::FakeCudaRuntime& m_runtime = test::FakeCudaRuntime::install();
};

TEST_F(EmulatedGpu, LaunchersAreToldOfTheDeviceAndTheOutput)
{
    run();
    const gpu::LauncherInfo& info = test::getEmulatedLaunch().m_info;
    EXPECT_EQ(3, info.m_nbMultiProcessors);
    EXPECT_EQ(2048, info.m_maxThreadsPerMultiProcessor);
    EXPECT_EQ(1024, info.m_maxThreadsPerBlock);
    EXPECT_EQ(16, info.m_blockSize2d);
    EXPECT_EQ(0, info.m_reservedValue);
    EXPECT_EQ(30U, info.m_sizeX);
    EXPECT_EQ(20U, info.m_sizeY);
    EXPECT_EQ(2U, info.m_sizeZ);
    EXPECT_EQ(5U, info.m_sizeC);
    EXPECT_EQ(3U, info.m_sizeT);
    EXPECT_EQ(4U, test::getEmulatedLaunch().m_sizeC1);
    EXPECT_EQ(1U, test::getEmulatedLaunch().m_sizeC2);
}

TEST_F(EmulatedGpu, EveryCallThatFailsEndsTheRunInItsOwnWords)
{
    for (const char* const call : {"allocate", "fillWithZeros", "copyToDevice", "getDevice"})
    {
        // Each call of that name in turn, until a run needs no more of them.
        int nbGoodCalls = 0;
        for (std::string error; error != "nothing was thrown"; ++nbGoodCalls)
        {
            m_runtime.failAt(call, nbGoodCalls);
            error = getError(&run);
            EXPECT_EQ(0U, m_runtime.getNbAllocated());
            if (error != "nothing was thrown")
            {
                EXPECT_THAT(error, HasSubstr(test::FakeCudaRuntime::g_failure)) << call << " after " << nbGoodCalls;
            }
        }
        EXPECT_GE(nbGoodCalls, 2) << call;
    }
}

TEST_F(EmulatedGpu, ALaunchThatFailsEndsTheRunInItsOwnWords)
{
    test::getEmulatedLaunch().m_failure = "too many resources requested for launch";
    EXPECT_EQ("too many resources requested for launch", getError(&run));
}

TEST_F(EmulatedGpu, TheDeviceOfTheThreadIsGivenBack)
{
    m_runtime.m_device = 2;
    const int nbBefore = m_runtime.getNbCalls("setDevice");
    run();
    EXPECT_EQ(2, m_runtime.m_device);
    const int nbCalls = m_runtime.getNbCalls("setDevice") - nbBefore;
    ASSERT_GT(nbCalls, 0);
    // A device is taken and given back by turns. One that cannot be taken ends the run; one that cannot be given back does not,
    // for the work is done and everybody takes the device that he needs.
    for (int nbGoodCalls = 0; nbGoodCalls < nbCalls; ++nbGoodCalls)
    {
        const bool bTaking = nbGoodCalls % 2 == 0;
        m_runtime.m_device = 2;
        m_runtime.failAt("setDevice", nbGoodCalls);
        EXPECT_THAT(getError(&run), HasSubstr(bTaking ? test::FakeCudaRuntime::g_failure : "nothing was thrown")) << nbGoodCalls;
        EXPECT_EQ(bTaking ? 2 : 0, m_runtime.m_device) << nbGoodCalls;
    }
    m_runtime.m_device = 0;
}

TEST_F(EmulatedGpu, AnImageInHostMemoryIsRefusedByLevel3)
{
    const auto processor = boost::make_shared<AppendColorChannelImgGpuLvl3>();
    processor->init(processor::ePRP_Rules);
    processor->set<attr::InSubGpuImg1>(makeImage(1));
    processor->set<attr::InSubGpuImg2>(makeImage(1));
    processor->set<attr::OutSubGpuImg>(makeImage(2));
    EXPECT_THAT(getError([&] { processor::executeSyncRun(processor); }), HasSubstr("uploadImage"));
}

TEST_F(EmulatedGpu, HoldsARowForEveryThreeBufferTypesInTheirOrder)
{
    const auto& rows = AppendColorChannelImgGpuLvl3::retrieveFunctionSelector().getFunctions();
    ASSERT_EQ(1331U, rows.size());
    constexpr int order[] = {1, 2, 3, 4, 5, 6, 7, 8, 11, 9, 10};
    std::vector<processor::CudaFunctionIdentifier::Function> functions;
    for (std::size_t i = 0; i < rows.size(); ++i)
    {
        ASSERT_EQ(3U, rows[i].getDataTypes().getSize());
        ASSERT_EQ(order[i / 121], rows[i].getDataTypes().getId(0));
        ASSERT_EQ(order[i / 11 % 11], rows[i].getDataTypes().getId(1));
        ASSERT_EQ(order[i % 11], rows[i].getDataTypes().getId(2));
        if (std::find(functions.begin(), functions.end(), rows[i].getFunction()) == functions.end())
        {
            functions.push_back(rows[i].getFunction());
        }
    }
    EXPECT_EQ(343U, functions.size());
}
} // namespace
} // namespace kovis::imaproc::color
