#include "KOVIS/KOVISImage/MemoryReserve.h"

#include "KOVIS/KOVISImage/HostImage.h"
#include "KOVIS/KOVISImage/PlaneMemory.h"
#include "KOVISImage/ImageBuilders.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <thread>
#include <vector>

namespace kovis::image
{
namespace
{
using detail::MemoryReserve;
using detail::PlaneMemory;

constexpr std::size_t g_mega = std::size_t(1) << 20;

class MemoryReserveTest : public testing::Test
{
protected:
    void SetUp() override
    {
        setMemoryReserve(0);
        setMemoryReserve(64 * g_mega);
    }
    void TearDown() override
    {
        setMemoryReserve(0);
        setMemoryReserve(256 * g_mega);
    }

    static std::size_t getNbKept() { return MemoryReserve::getInstance().getNbKept(); }
    static bool isZero(const void* pData, std::size_t nbBytes)
    {
        const auto* const pBytes = static_cast<const unsigned char*>(pData);
        return std::all_of(pBytes, pBytes + nbBytes, [](unsigned char byte) { return byte == 0; });
    }
    static void makeDirty(std::size_t nbBytes)
    {
        PlaneMemory memory(nbBytes);
        memory.prepareAll();
        std::memset(memory.getData(), 0xEE, nbBytes);
    }
};

TEST(MemoryReserveLimit, isAQuarterOfAGigabyteByDefault)
{
    EXPECT_EQ(256 * g_mega, getMemoryReserve());
}

TEST_F(MemoryReserveTest, keepsWhatIsDroppedAndGivesItAgain)
{
    const void* pFirst = nullptr;
    {
        const PlaneMemory memory(3 * g_mega);
        pFirst = memory.getData();
        EXPECT_EQ(0u, getNbKept());
    }
    EXPECT_GE(getNbKept(), 3 * g_mega);
    EXPECT_LE(getNbKept(), 3 * g_mega + 2 * 4096);
    const PlaneMemory memory(3 * g_mega);
    EXPECT_EQ(0u, getNbKept());
    // The same block, at most with another start in its first page.
    EXPECT_LT(std::abs(static_cast<const char*>(pFirst) - static_cast<const char*>(memory.getData())), 4096);
}

TEST_F(MemoryReserveTest, wastesAQuarterAtMost)
{
    makeDirty(5 * g_mega);
    const std::size_t nbKept = getNbKept();
    {
        const PlaneMemory small(3 * g_mega); // 5 for 3 is too much
        EXPECT_EQ(nbKept, getNbKept());
    }
    makeDirty(5 * g_mega);
    setMemoryReserve(0);
    setMemoryReserve(64 * g_mega);
    makeDirty(5 * g_mega);
    const PlaneMemory near(4 * g_mega + 512 * 1024);
    EXPECT_EQ(0u, getNbKept());
    makeDirty(4 * g_mega);
    const PlaneMemory larger(5 * g_mega); // never a block that is too small
    EXPECT_GE(getNbKept(), 4 * g_mega);
}

TEST_F(MemoryReserveTest, takesTheBestFit)
{
    {
        const PlaneMemory a(4 * g_mega + 900 * 1024);
        const PlaneMemory b(4 * g_mega + 100 * 1024);
        const PlaneMemory c(4 * g_mega + 500 * 1024);
    }
    const std::size_t nbKept = getNbKept();
    const PlaneMemory memory(4 * g_mega);
    EXPECT_LE(nbKept - getNbKept(), 4 * g_mega + 100 * 1024 + 2 * 4096);
}

TEST_F(MemoryReserveTest, limitDropsTheOldest)
{
    setMemoryReserve(10 * g_mega);
    makeDirty(4 * g_mega);
    makeDirty(5 * g_mega);
    EXPECT_GE(getNbKept(), 9 * g_mega);
    makeDirty(6 * g_mega - 512 * 1024);
    EXPECT_LE(getNbKept(), 10 * g_mega);
    EXPECT_LT(getNbKept(), 6 * g_mega); // both older ones had to go
    makeDirty(11 * g_mega);             // never kept, and costs the others nothing
    EXPECT_GE(getNbKept(), 5 * g_mega);
    setMemoryReserve(5 * g_mega);
    EXPECT_EQ(0u, getNbKept());
    EXPECT_EQ(5 * g_mega, getMemoryReserve());
}

TEST_F(MemoryReserveTest, zeroKeepsNothing)
{
    makeDirty(4 * g_mega);
    EXPECT_NE(0u, getNbKept());
    setMemoryReserve(0);
    EXPECT_EQ(0u, getNbKept());
    makeDirty(4 * g_mega);
    EXPECT_EQ(0u, getNbKept());
    EXPECT_EQ(0u, getMemoryReserve());
}

TEST_F(MemoryReserveTest, memoryIsZeroAgain)
{
    for (const std::size_t nbBytes : {std::size_t(100), std::size_t(20000), std::size_t(32767), std::size_t(32768),
                                      std::size_t(40001), std::size_t(65536), std::size_t(70000), 3 * g_mega + 5})
    {
        makeDirty(nbBytes);
        PlaneMemory memory(nbBytes);
        EXPECT_EQ(0u, reinterpret_cast<std::uintptr_t>(memory.getData()) % 64);
        memory.prepareAll();
        EXPECT_TRUE(isZero(memory.getData(), nbBytes)) << nbBytes;
    }
}

TEST_F(MemoryReserveTest, whatIsPreparedKeepsWhatIsWritten)
{
    const std::size_t nbBytes = 300000;
    makeDirty(nbBytes);
    PlaneMemory memory(nbBytes);
    auto* const pBytes = static_cast<unsigned char*>(memory.getData());
    memory.prepare(100000, 100001);
    pBytes[100000] = 1;
    EXPECT_EQ(0xEE, pBytes[0]); // not touched before its turn
    memory.prepare(0, 0);
    memory.prepare(nbBytes, nbBytes + 100);
    memory.prepare(50, 20);
    EXPECT_EQ(0xEE, pBytes[0]);
    memory.prepareAll();
    EXPECT_EQ(1, pBytes[100000]);
    pBytes[100000] = 0;
    EXPECT_TRUE(isZero(pBytes, nbBytes));
    pBytes[7] = 9;
    memory.prepareAll();
    EXPECT_EQ(9, pBytes[7]);
}

// A block that is dropped before anybody looked at it is as dirty as it was.
TEST_F(MemoryReserveTest, untouchedMemoryStaysDirty)
{
    makeDirty(200000);
    {
        PlaneMemory memory(200000);
        memory.prepare(0, 1);
    }
    PlaneMemory memory(200000);
    memory.prepareAll();
    EXPECT_TRUE(isZero(memory.getData(), 200000));
}

TEST_F(MemoryReserveTest, manyThreadsPrepareAndWrite)
{
    const std::size_t nbBytes = 8 * g_mega;
    const std::size_t nbThreads = 4;
    for (int round = 0; round < 5; ++round)
    {
        makeDirty(nbBytes);
        PlaneMemory memory(nbBytes);
        auto* const pBytes = static_cast<unsigned char*>(memory.getData());
        std::vector<std::thread> threads;
        std::vector<int> failures(nbThreads, 0);
        for (std::size_t i = 0; i < nbThreads; ++i)
        {
            threads.emplace_back(
                [&, i]
                {
                    // Pieces that share chunks with those of the other threads.
                    const std::size_t nbPiece = 5000;
                    for (std::size_t begin = i * nbPiece; begin < nbBytes; begin += nbThreads * nbPiece)
                    {
                        const std::size_t end = std::min(begin + nbPiece, nbBytes);
                        memory.prepare(begin, end);
                        failures[i] += isZero(pBytes + begin, end - begin) ? 0 : 1;
                        std::memset(pBytes + begin, static_cast<int>(i + 1), end - begin);
                    }
                });
        }
        for (std::thread& thread : threads)
        {
            thread.join();
        }
        EXPECT_EQ(std::vector<int>(nbThreads, 0), failures);
        std::size_t nbWrong = 0;
        for (std::size_t i = 0; i < nbBytes; ++i)
        {
            nbWrong += pBytes[i] == i / 5000 % nbThreads + 1 ? 0u : 1u;
        }
        EXPECT_EQ(0u, nbWrong);
    }
}

TEST_F(MemoryReserveTest, manyThreadsMakeAndDrop)
{
    std::vector<std::thread> threads;
    std::vector<int> failures(4, 0);
    for (std::size_t i = 0; i < failures.size(); ++i)
    {
        threads.emplace_back(
            [&failures, i]
            {
                for (std::size_t round = 0; round < 60; ++round)
                {
                    const std::size_t nbBytes = 40000 + (round * 7919 + i * 104729) % 200000;
                    PlaneMemory memory(nbBytes);
                    memory.prepareAll();
                    failures[i] += isZero(memory.getData(), nbBytes) ? 0 : 1;
                    std::memset(memory.getData(), 0xEE, nbBytes);
                    if (round % 20 == 19)
                    {
                        setMemoryReserve(round % 40 == 39 ? 0 : 64 * g_mega);
                    }
                }
            });
    }
    for (std::thread& thread : threads)
    {
        thread.join();
    }
    EXPECT_EQ(std::vector<int>(4, 0), failures);
}

TEST_F(MemoryReserveTest, imagesAreZeroAgainThroughStripsOfManyThreads)
{
    const unsigned long sizeX = 517;
    const unsigned long sizeY = 303;
    const auto makeDirtyImage = [&]
    {
        const auto image = createImage2d(sizeX, sizeY, eCGT_Rgb, eIBT_Real);
        for (unsigned long c = 0; c < 3; ++c)
        {
            float* const pData = planeData<float>(image, c);
            std::fill(pData, pData + sizeX * sizeY + 64, 1e9f);
        }
    };
    makeDirtyImage();
    makeDirtyImage();
    EXPECT_GT(getNbKept(), 3 * sizeX * sizeY * 4);
    const auto image = createImage2d(sizeX, sizeY, eCGT_Rgb, eIBT_Real);
    EXPECT_EQ(0u, getNbKept());

    const unsigned long nbRows = 7;
    std::atomic<unsigned long> nextRow{0};
    std::vector<std::thread> threads;
    std::vector<int> failures(4, 0);
    for (std::size_t i = 0; i < failures.size(); ++i)
    {
        threads.emplace_back(
            [&, i]
            {
                for (unsigned long row = nextRow.fetch_add(nbRows); row < sizeY; row = nextRow.fetch_add(nbRows))
                {
                    OutputImageYStripColor2d strip(image, ElementsRange(row * sizeX, std::min(row + nbRows, sizeY) * sizeX),
                                                   eStripElements::wholeBlocks);
                    for (unsigned long c = 0; c < 3; ++c)
                    {
                        failures[i] += isZero(strip.getPlane(c), strip.getNbElements() * sizeof(float)) ? 0 : 1;
                        std::fill_n(static_cast<float*>(strip.getPlane(c)), strip.getNbElements(), static_cast<float>(c + 1));
                    }
                    strip.commit();
                }
            });
    }
    for (std::thread& thread : threads)
    {
        thread.join();
    }
    EXPECT_EQ(std::vector<int>(4, 0), failures);
    for (unsigned long c = 0; c < 3; ++c)
    {
        const float* const pData = planeData<float>(boost::shared_ptr<const BaseImage>(image), c);
        EXPECT_EQ(static_cast<long>(sizeX * sizeY), std::count(pData, pData + sizeX * sizeY, static_cast<float>(c + 1)));
    }
}

TEST_F(MemoryReserveTest, planesDoNotBeginAtOnePlaceOfTheirPages)
{
    const auto image = createImage2d(512, 512, eCGT_Rgb, eIBT_Real);
    const auto other = createImage2d(512, 512, eCGT_Rgb, eIBT_Real);
    std::vector<std::uintptr_t> places;
    for (unsigned long c = 0; c < 3; ++c)
    {
        places.push_back(reinterpret_cast<std::uintptr_t>(planeData<float>(image, c)) % 4096);
        places.push_back(reinterpret_cast<std::uintptr_t>(planeData<float>(other, c)) % 4096);
    }
    std::sort(places.begin(), places.end());
    EXPECT_EQ(places.end(), std::adjacent_find(places.begin(), places.end()));
}
} // namespace
} // namespace kovis::image
