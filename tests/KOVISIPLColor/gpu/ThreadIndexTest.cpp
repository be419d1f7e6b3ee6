// Where one thread of the append reads and writes: 32 bits up to its place in the grid, 64 from there on.
#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/Gpu/appendColorChannelThread.h"

#include <gtest/gtest.h>

#include <sys/mman.h>

#include <algorithm>
#include <array>

namespace kovis::imaproc::color::gpu
{
namespace
{
kovis::gpu::LauncherInfo makeInfo(unsigned long sizeX, unsigned long sizeY, unsigned long sizeC)
{
    kovis::gpu::LauncherInfo info;
    info.m_sizeX = sizeX;
    info.m_sizeY = sizeY;
    info.m_sizeZ = info.m_sizeT = 1;
    info.m_sizeC = sizeC;
    return info;
}

TEST(AppendThread, ItsPlaceWrapsIn32Bits)
{
    // Four by four pixels of two channels, and a thread that writes one of them.
    const std::array<unsigned char, 16> in1 = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15};
    std::array<unsigned char, 16> in2{};
    std::transform(in1.begin(), in1.end(), in2.begin(),
                   [](unsigned char value) { return static_cast<unsigned char>(value + 100); });
    const unsigned char* const table1[] = {in1.data()};
    const unsigned char* const table2[] = {in2.data()};
    struct Case
    {
        GridIndex m_block;
        GridIndex m_thread;
        std::size_t m_channel;
        std::size_t m_pixel;
    };
    const Case cases[] = {
        {{0x10000000U, 0, 0}, {3, 0, 0}, 0, 3},
        {{0, 0x10000000U, 0}, {0, 2, 0}, 0, 8},
        {{0, 0, 0x10000000U}, {1, 1, 1}, 1, 5},
        {{0x30000000U, 0x70000000U, 0x20000000U}, {2, 3, 0}, 0, 14},
    };
    for (const Case& one : cases)
    {
        std::array<std::array<unsigned char, 16>, 2> out{};
        for (auto& plane : out)
        {
            plane.fill(0xA5);
        }
        auto expected = out;
        expected[one.m_channel][one.m_pixel] = (one.m_channel == 0 ? in1 : in2)[one.m_pixel];
        unsigned char* const table[] = {out[0].data(), out[1].data()};
        appendColorChannelThread(one.m_block, {16, 16, 16}, one.m_thread, makeInfo(4, 4, 2), 1, table1, table2, table);
        EXPECT_EQ(expected, out) << "pixel " << one.m_pixel;
    }
}

/// More pixels than 32 bits count. Only pages that are touched take memory.
class HugePlane
{
public:
    static constexpr unsigned long g_sizeX = 0x20000UL;
    static constexpr unsigned long g_sizeY = 0x8002UL;

    HugePlane() : m_pMemory(mmap(nullptr, g_sizeX * g_sizeY, PROT_READ | PROT_WRITE, g_flags, -1, 0)) {}
    ~HugePlane()
    {
        if (isThere())
        {
            munmap(m_pMemory, g_sizeX * g_sizeY);
        }
    }
    HugePlane(const HugePlane&) = delete;
    HugePlane& operator=(const HugePlane&) = delete;

    bool isThere() const { return m_pMemory != MAP_FAILED; }
    unsigned char* getData() const { return static_cast<unsigned char*>(m_pMemory); }

private:
    static constexpr int g_flags = MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE;
    void* m_pMemory;
};

TEST(AppendThread, ItsPixelIsCountedIn64Bits)
{
    const HugePlane in;
    const HugePlane out;
    if (!in.isThere() || !out.isThere())
    {
        GTEST_SKIP() << "the system promises no two planes of 4 GiB";
    }
    constexpr unsigned long y = HugePlane::g_sizeY - 1;
    constexpr unsigned long index = y * HugePlane::g_sizeX + 7;
    static_assert(index > 0xFFFFFFFFUL);
    in.getData()[index] = 42;
    in.getData()[index & 0xFFFFFFFFUL] = 13;
    const unsigned char* const inTable[] = {in.getData()};
    unsigned char* const outTable[] = {out.getData()};
    appendColorChannelThread({0, static_cast<unsigned int>(y / 16), 0}, {16, 16, 1}, {7, static_cast<unsigned int>(y % 16), 0},
                             makeInfo(HugePlane::g_sizeX, HugePlane::g_sizeY, 1), 1, inTable, inTable, outTable);
    EXPECT_EQ(42, out.getData()[index]);
    EXPECT_EQ(0, out.getData()[index & 0xFFFFFFFFUL]);
}
} // namespace
} // namespace kovis::imaproc::color::gpu
