// Images in device memory, over an emulated device.
#include "ImageBuilders.h"
#include "support/FakeCudaRuntime.h"

#include "KOVIS/KOVISImage/CudaImageFactory.h"
#include "KOVIS/KOVISImage/SubImageExtractor.h"

#include <boost/make_shared.hpp>
#include <boost/weak_ptr.hpp>
#include <gmock/gmock.h>

#include <array>
#include <functional>
#include <latch>
#include <thread>

namespace kovis::image
{
namespace
{
using test::getImageError;
using test::makeGeometry;
using testing::HasSubstr;

// Before any test asks for devices.
test::FakeCudaRuntime& g_runtime = test::FakeCudaRuntime::install();

class CudaImages : public testing::Test
{
protected:
    ~CudaImages() override
    {
        g_runtime.failNowhere();
        EXPECT_EQ(0U, g_runtime.getNbAllocated());
    }

    static boost::shared_ptr<BaseImage> makeHostImage()
    {
        const auto made = createImage(makeGeometry(5, 3, 2, 3, 2, eIBT_UInt16));
        unsigned short value = 0;
        for (unsigned long plane = 0; plane < 12; ++plane)
        {
            unsigned short* const pData = planeData<unsigned short>(made, plane % 3, plane / 3 % 2, plane / 6);
            for (unsigned int i = 0; i < 15; ++i)
            {
                pData[i] = value++;
            }
        }
        return made;
    }
};

TEST_F(CudaImages, goThereAndBackWithEveryPlane)
{
    const auto host = makeHostImage();
    const auto onGpu = uploadImage(*host);
    EXPECT_TRUE(onGpu->isGpuImage());
    EXPECT_EQ(eIBT_UInt16, onGpu->getBufferType());
    EXPECT_EQ(2U, onGpu->getSizeT());
    const auto back = downloadImage(*onGpu);
    EXPECT_FALSE(back->isGpuImage());
    for (unsigned long plane = 0; plane < 12; ++plane)
    {
        const unsigned short* const pData = planeData<unsigned short>(back, plane % 3, plane / 3 % 2, plane / 6);
        for (unsigned int i = 0; i < 15; ++i)
        {
            ASSERT_EQ(plane * 15 + i, pData[i]);
        }
        EXPECT_EQ(0U, reinterpret_cast<std::uintptr_t>(onGpu->getPlane(plane % 3, plane / 3 % 2, plane / 6)) % 2);
    }
}

TEST_F(CudaImages, beginAsZeros)
{
    const auto back = downloadImage(*createCudaImage(makeGeometry(7, 3, 1, 2, 1, eIBT_Real)));
    for (unsigned long c = 0; c < 2; ++c)
    {
        for (unsigned int i = 0; i < 21; ++i)
        {
            ASSERT_EQ(0.0F, planeData<float>(back, c)[i]);
        }
    }
}

TEST_F(CudaImages, areCopiedBetweenWhatExists)
{
    const auto host = makeHostImage();
    const auto onGpu = createCudaImage(makeGeometry(5, 3, 2, 3, 2, eIBT_UInt16_9)); // the same storage
    copyToGpu(*host, *onGpu);
    const auto target = createImage(host->getGeometry());
    copyToHost(*onGpu, *target);
    EXPECT_EQ(179, planeData<unsigned short>(target, 2, 1, 1)[14]);
    const auto narrow = createImage(makeGeometry(4, 3, 2, 3, 2, eIBT_UInt16));
    EXPECT_EQ("The image (5 x 3 x 2, 2 time steps, 3 channels, u16) cannot be copied to the image (4 x 3 x 2, 2 time "
              "steps, 3 channels, u16): sizes, number of channels and element type must agree",
              getImageError([&] { copyToHost(*onGpu, *narrow); }));
    EXPECT_THAT(getImageError([&] { copyToGpu(*narrow, *onGpu); }), HasSubstr("must agree"));
    const auto other = createImage(makeGeometry(5, 3, 2, 3, 2, eIBT_Int16));
    EXPECT_THAT(getImageError([&] { copyToGpu(*other, *onGpu); }), HasSubstr("must agree"));
    EXPECT_THAT(getImageError([&] { copyToGpu(*onGpu, *onGpu); }), HasSubstr("memory of a GPU"));
}

TEST_F(CudaImages, haveATableOfTheirPlanesOnTheDevice)
{
    const auto onGpu = createCudaImage(makeGeometry(2, 2, 2, 3, 1, eIBT_Int8));
    void** const table = onGpu->getPlaneTable();
    EXPECT_EQ(table, onGpu->getPlaneTable());
    std::vector<void*> addresses(6);
    ASSERT_TRUE(g_runtime.copyToHost(addresses.data(), table, 6 * sizeof(void*)).m_bSuccess);
    for (unsigned long c = 0; c < 3; ++c)
    {
        EXPECT_EQ(onGpu->getPlane(c, 0, 0), addresses[c]);
        EXPECT_EQ(onGpu->getPlane(c, 1, 0), addresses[3 + c]);
    }
}

TEST_F(CudaImages, giveManyThreadsOneTable)
{
    for (int turn = 0; turn < 50; ++turn)
    {
        const auto onGpu = createCudaImage(makeGeometry(2, 2, 1, 3, 1, eIBT_Int8));
        const int nbAllocations = g_runtime.getNbCalls("allocate");
        std::latch start(8);
        std::array<void**, 8> tables{};
        std::vector<std::thread> threads;
        for (void**& table : tables)
        {
            threads.emplace_back(
                [&]
                {
                    start.arrive_and_wait();
                    table = onGpu->getPlaneTable();
                });
        }
        for (std::thread& thread : threads)
        {
            thread.join();
        }
        ASSERT_EQ(nbAllocations + 1, g_runtime.getNbCalls("allocate"));
        EXPECT_THAT(tables, testing::Each(onGpu->getPlaneTable()));
    }
}

TEST_F(CudaImages, keepTheirOwnerAndTheirMemoryAlive)
{
    auto owner = boost::make_shared<int>(1);
    const boost::weak_ptr<int> watch(owner);
    char plane = 0;
    auto shown = boost::make_shared<CudaImage>(makeGeometry(1, 1, 1, 1, 1, eIBT_Int8), std::vector<void*>{&plane}, owner);
    owner.reset();
    EXPECT_FALSE(watch.expired());
    shown->getPlaneTable();
    shown.reset();
    EXPECT_TRUE(watch.expired());
}

TEST_F(CudaImages, failInTheWordsOfTheRuntimeAndLeaveNothingBehind)
{
    const auto host = makeHostImage();
    const std::vector<std::pair<const char*, std::function<void()>>> calls = {
        {"allocate", [&] { uploadImage(*host); }},
        {"copyToDevice", [&] { uploadImage(*host); }},
        {"getDevice", [&] { uploadImage(*host); }},
        {"fillWithZeros", [&] { createCudaImage(host->getGeometry()); }},
        {"allocate", [&] { createCudaImage(host->getGeometry()); }},
        {"copyToHost", [&] { downloadImage(*uploadImage(*host)); }},
        {"copyToDevice", [&] { createCudaImage(host->getGeometry())->getPlaneTable(); }},
    };
    for (const auto& [name, call] : calls)
    {
        g_runtime.failAt(name);
        EXPECT_THAT(getImageError(call), HasSubstr(test::FakeCudaRuntime::g_failure)) << name;
        EXPECT_EQ(0U, g_runtime.getNbAllocated()) << name;
    }
    // The second allocation of a run is that of the table; the image can try again afterwards.
    g_runtime.failNowhere();
    const auto onGpu = createCudaImage(host->getGeometry());
    g_runtime.failAt("allocate");
    EXPECT_THAT(getImageError([&] { onGpu->getPlaneTable(); }), HasSubstr("addresses of planes"));
    g_runtime.failNowhere();
    EXPECT_NE(nullptr, onGpu->getPlaneTable());
}

TEST_F(CudaImages, areRefusedAsHostImagesAre)
{
    EXPECT_THAT(getImageError([] { createCudaImage(makeGeometry(0, 1, 1, 1, 1, eIBT_Int8)); }), HasSubstr("size in X is 0"));
    EXPECT_THAT(getImageError([] { createCudaImage(makeGeometry(1UL << 60, 1UL << 10, 1, 1, 1, eIBT_Int8)); }),
                HasSubstr("more than the address space holds"));
    const auto host = makeHostImage();
    EXPECT_THAT(getImageError([&] { getCudaImage(*host); }), HasSubstr("upload it with uploadImage first"));
    const auto onGpu = uploadImage(*host);
    EXPECT_EQ(onGpu.get(), &getCudaImage(*onGpu));
}
} // namespace
} // namespace kovis::image
