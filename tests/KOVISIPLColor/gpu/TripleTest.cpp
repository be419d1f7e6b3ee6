// The kernels of all 343 triples of pixel types against the plain model, to the bit. Compiled twice: over an emulated grid on the
// host, and for the device of this computer, where these tests are skipped if there is none.
#include "GpuFixture.h"
#include "TripleCheck.h"

#include <gtest/gtest.h>

namespace kovis::test
{
namespace
{
constexpr PixelType g_types[] = {PixelType::i8,  PixelType::u8,  PixelType::i16, PixelType::u16,
                                 PixelType::i32, PixelType::u32, PixelType::f32};

gpu::LauncherInfo makeInfo(unsigned long sizeX, unsigned long sizeY, unsigned long sizeZ, unsigned long sizeC,
                           unsigned long sizeT, int side)
{
    gpu::LauncherInfo info;
    info.m_blockSize2d = side;
    info.m_sizeX = sizeX;
    info.m_sizeY = sizeY;
    info.m_sizeZ = sizeZ;
    info.m_sizeC = sizeC;
    info.m_sizeT = sizeT;
    return info;
}

class AppendTriples : public GpuFixture
{
protected:
    // Launches and compares.
    static void check(const gpu::LauncherInfo& info, PixelType type1, std::size_t sizeC1, PixelType type2, std::size_t sizeC2,
                      PixelType target)
    {
        const std::size_t nbElements = info.m_sizeX * info.m_sizeY;
        std::mt19937 random(20260117U + static_cast<unsigned int>(sizeC1));
        const TypedPlanes in1 = makeSamples(type1, sizeC1, nbElements, random);
        const TypedPlanes in2 = makeSamples(type2, sizeC2, nbElements, random);
        TypedPlanes out = makeEmpty(target, info.m_sizeC * info.m_sizeZ * info.m_sizeT, nbElements);
        const gpu::CudaResult result = launchTriple(info, in1, in2, out);
        ASSERT_TRUE(result.m_bSuccess) << result.m_text;
        EXPECT_STREQ("", result.m_text);
        EXPECT_EQ("", findDifference(in1, in2, out, info.m_sizeC, nbElements));
    }
};

TEST_F(AppendTriples, AllAreThoseOfTheModel)
{
    for (const PixelType type1 : g_types)
    {
        for (const PixelType type2 : g_types)
        {
            for (const PixelType target : g_types)
            {
                check(makeInfo(37, 11, 1, 5, 1, 16), type1, 2, type2, 3, target);
                ASSERT_FALSE(HasFailure());
            }
        }
    }
}

TEST_F(AppendTriples, EveryShapeIsCovered)
{
    for (const auto& [sizeX, sizeY] :
         {std::pair(1UL, 1UL), std::pair(16UL, 16UL), std::pair(17UL, 1UL), std::pair(1UL, 33UL), std::pair(31UL, 15UL)})
    {
        for (const int side : {1, 2, 8, 16, 32})
        {
            check(makeInfo(sizeX, sizeY, 1, 4, 1, side), PixelType::u8, 3, PixelType::u8, 1, PixelType::u8);
            check(makeInfo(sizeX, sizeY, 1, 2, 1, side), PixelType::f32, 1, PixelType::i16, 1, PixelType::u16);
        }
    }
}

TEST_F(AppendTriples, OnlyTheLow16BitsOfTheBlockSideCount)
{
    check(makeInfo(20, 9, 1, 2, 1, (5 << 16) + 8), PixelType::i32, 1, PixelType::u32, 1, PixelType::i8);
}

TEST_F(AppendTriples, FurtherSlicesAndTimeStepsAreNotTouched)
{
    check(makeInfo(19, 7, 3, 3, 2, 8), PixelType::u16, 1, PixelType::u16, 2, PixelType::u16);
    check(makeInfo(19, 7, 1, 3, 4, 8), PixelType::f32, 2, PixelType::f32, 1, PixelType::f32);
}

TEST_F(AppendTriples, AnOutputOfFewerChannelsGetsTheFirstOnes)
{
    check(makeInfo(9, 9, 1, 2, 1, 16), PixelType::u8, 3, PixelType::u8, 1, PixelType::u8);
    check(makeInfo(9, 9, 1, 4, 1, 16), PixelType::u8, 3, PixelType::u8, 4, PixelType::u8);
}
} // namespace
} // namespace kovis::test
