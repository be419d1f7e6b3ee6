// How long pieces are: the figures that a run's memory and its small-image speed rest on.
#include "KOVIS/KOVISBaseProcessing/PieceLength.h"

#include <gtest/gtest.h>

namespace
{
using kovis::processor::detail::choosePieceLength;
using kovis::processor::detail::PieceConditions;

constexpr std::size_t g_mebibyte = 1024 * 1024;

PieceConditions conditions(unsigned long sizeX, unsigned long sizeY, std::size_t elementBytes, std::size_t cache,
                           unsigned int nbThreads)
{
    PieceConditions result;
    result.m_nbElements = sizeX * sizeY;
    result.m_rowLength = sizeX;
    result.m_elementBytes = elementBytes;
    result.m_level2CacheSize = cache;
    result.m_nbThreads = nbThreads;
    return result;
}

TEST(PieceLength, SmallWorkIsOnePiece)
{
    EXPECT_EQ(4096U, choosePieceLength(conditions(64, 64, 24, g_mebibyte, 16)));
    EXPECT_EQ(1U, choosePieceLength(conditions(1, 1, 24, g_mebibyte, 16)));
    EXPECT_EQ(1U, choosePieceLength(conditions(0, 0, 0, 0, 0)));
}

TEST(PieceLength, PiecesAreWholeRowsThatFitTheCache)
{
    for (const std::size_t cache : {512 * 1024UL, g_mebibyte, 2 * g_mebibyte})
    {
        for (const std::size_t elementBytes : {6UL, 24UL, 32UL})
        {
            for (const unsigned long sizeX : {100UL, 512UL, 2048UL, 6000UL})
            {
                const unsigned long length = choosePieceLength(conditions(sizeX, 4000, elementBytes, cache, 1));
                EXPECT_EQ(0U, length % sizeX);
                // With three float planes beside the images; less than 8192 elements are not worth a piece.
                EXPECT_TRUE(length * (elementBytes + 12) <= cache || length <= 8192) << length;
                EXPECT_LE(length, 65536U);
            }
        }
    }
}

TEST(PieceLength, LongRowsAreCutIntoWholeBlocks)
{
    for (const unsigned long sizeX : {70000UL, 1000003UL, 1UL << 32})
    {
        const unsigned long length = choosePieceLength(conditions(sizeX, 3, 24, g_mebibyte, 4));
        EXPECT_EQ(0U, length % 64);
        EXPECT_GE(length, 8192U);
        EXPECT_LE(length, 65536U);
    }
}

TEST(PieceLength, WorkingPlanesStayBelowFourMebibytesAtAnyWidth)
{
    for (unsigned long sizeX = 1; sizeX < (1UL << 36); sizeX = sizeX * 3 + 1)
    {
        for (const std::size_t cache : {0UL, g_mebibyte, 512 * g_mebibyte})
        {
            EXPECT_LE(choosePieceLength(conditions(sizeX, 100, 2, cache, 1)) * 12, 4 * g_mebibyte) << sizeX;
        }
    }
}

TEST(PieceLength, LargeWorkGivesEveryThreadAFewPieces)
{
    for (const unsigned int nbThreads : {1U, 2U, 8U})
    {
        const PieceConditions large = conditions(1000, 1000, 24, g_mebibyte, nbThreads);
        EXPECT_GE(large.m_nbElements / choosePieceLength(large), 4UL * nbThreads) << nbThreads;
    }
}
} // namespace
