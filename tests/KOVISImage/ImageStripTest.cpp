#include "KOVIS/KOVISImage/ImageStrip.h"

#include "KOVISImage/ImageBuilders.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <numeric>
#include <vector>

namespace kovis::image
{
namespace
{
using test::getImageError;
using test::makeGeometry;
using ::testing::HasSubstr;

// Every element of the plane lies in one strip and no block in two, at every width, height and strip height.
TEST(WholeBlockStrips, partitionThePlane)
{
    for (unsigned long sizeX = 1; sizeX <= 130; ++sizeX)
    {
        for (const unsigned long sizeY : {1ul, 2ul, 3ul, 7ul, 64ul})
        {
            const auto image = createImage2d(sizeX, sizeY, eCGT_Grey, eIBT_UInt8);
            for (const unsigned long nbRows : {1ul, 2ul, 3ul, 5ul, 64ul})
            {
                std::vector<int> owners((sizeX * sizeY + 63) / 64, 0);
                unsigned long nbExact = 0;
                for (unsigned long row = 0; row < sizeY; row += nbRows)
                {
                    const unsigned long endRow = std::min(row + nbRows, sizeY);
                    const OutputImageYStripColor2d strip(image, ElementsRange(row * sizeX, endRow * sizeX),
                                                         eStripElements::wholeBlocks);
                    ASSERT_EQ(sizeX, strip.getSizeX());
                    ASSERT_EQ(endRow - row, strip.getSizeY());
                    ASSERT_EQ(0u, strip.getNbElements() % 64);
                    ASSERT_EQ(0u, strip.getFirstElement() % 64);
                    ASSERT_LE(strip.getNbExactElements(), strip.getNbElements());
                    nbExact += strip.getNbExactElements();
                    for (unsigned long i = 0; i < strip.getNbElements(); i += 64)
                    {
                        ++owners.at((strip.getFirstElement() + i) / 64);
                    }
                    if (strip.getNbElements() != 0)
                    {
                        // The strip's blocks are those that begin in its rows.
                        ASSERT_GE(strip.getFirstElement(), row * sizeX);
                        ASSERT_LT(strip.getFirstElement() + strip.getNbElements() - 64, endRow * sizeX);
                    }
                }
                ASSERT_EQ(std::vector<int>(owners.size(), 1), owners) << sizeX << " x " << sizeY << ", " << nbRows << " rows";
                ASSERT_EQ(sizeX * sizeY, nbExact);
            }
        }
    }
}

TEST(WholeBlockStrips, showTheImagesOwnMemory)
{
    const auto image = createImage2d(100, 5, eCGT_Rgb, eIBT_Real);
    const OutputImageYStripColor2d strip(image, ElementsRange(300, 500), eStripElements::wholeBlocks);
    EXPECT_EQ(320u, strip.getFirstElement());
    EXPECT_EQ(192u, strip.getNbElements()); // 320 to 512
    EXPECT_EQ(180u, strip.getNbExactElements());
    for (unsigned long c = 0; c < 3; ++c)
    {
        EXPECT_EQ(planeData<float>(image, c) + 320, strip.getPlane(c));
        EXPECT_EQ(0u, reinterpret_cast<std::uintptr_t>(strip.getPlane(c)) % 64);
    }
    EXPECT_EQ(eCGT_Rgb, strip.getColorGeometryType());
    EXPECT_EQ(3u, strip.getSizeC());
    EXPECT_EQ(eIBT_Real, strip.getBufferType());
}

TEST(WholeBlockStrips, mayBeEmpty)
{
    const auto image = createImage2d(10, 7, eCGT_Grey, eIBT_UInt8);
    const InputImageYStripColor2d second(image, ElementsRange(10, 20), eStripElements::wholeBlocks);
    EXPECT_EQ(0u, second.getNbElements());
    EXPECT_EQ(0u, second.getNbExactElements());
    EXPECT_NE(nullptr, second.getPlane(0));
    const InputImageYStripColor2d last(image, ElementsRange(65, 70), eStripElements::wholeBlocks);
    EXPECT_EQ(0u, last.getNbElements());
    EXPECT_EQ(0u, last.getNbExactElements());
    const InputImageYStripColor2d first(image, ElementsRange(0, 10), eStripElements::wholeBlocks);
    EXPECT_EQ(64u, first.getNbElements());
    EXPECT_EQ(64u, first.getNbExactElements());
}

// Staged or not, a strip tells where its elements lie in the image.
TEST(WholeBlockStrips, tellTheirPlaceInTheImage)
{
    std::vector<unsigned short> memory(30);
    HomogeneousImageGeometry geometry;
    geometry.init(VolumeGeometry(), ColorGeometry(), TemporalGeometry(), 10, 3, eIBT_UInt16);
    const auto image = wrapImage(geometry, {memory.data()}, nullptr);
    const InputImageYStripColor2d staged(image, ElementsRange(0, 30), eStripElements::wholeBlocks);
    EXPECT_NE(memory.data(), staged.getPlane(0));
    EXPECT_EQ(memory.data(), staged.getSourceAddress(0));
    const auto row = makeOutputStrip(image, 1, 1);
    EXPECT_NE(memory.data() + 10, row->getPlane(0));
    EXPECT_EQ(memory.data() + 10, row->getSourceAddress(0));

    const auto own = createImage2d(100, 2, eCGT_Rgb, eIBT_UInt8);
    const InputImageYStripColor2d direct(own, ElementsRange(100, 200), eStripElements::wholeBlocks);
    EXPECT_EQ(planeData<unsigned char>(own, 2) + 128, direct.getSourceAddress(2));
    EXPECT_EQ("The index 3 of the channel is out of range: it must be below 3",
              getImageError([&] { (void)direct.getSourceAddress(3); }));
}

// A range inside a row, for rows that are too wide for one strip.
TEST(WholeBlockStrips, mayBeAPartOfARow)
{
    const auto image = createImage2d(1000, 3, eCGT_Rgb, eIBT_UInt16);
    const OutputImageYStripColor2d strip(image, ElementsRange(1100, 1300), eStripElements::wholeBlocks);
    EXPECT_EQ(200u, strip.getSizeX());
    EXPECT_EQ(1u, strip.getSizeY());
    EXPECT_EQ(1152u, strip.getFirstElement());
    EXPECT_EQ(192u, strip.getNbElements()); // 1152 to 1344
}

TEST(ExactStrips, haveJustTheirRows)
{
    const auto image = createImage2d(100, 5, eCGT_Rgb, eIBT_Real);
    for (unsigned long c = 0; c < 3; ++c)
    {
        std::iota(planeData<float>(image, c), planeData<float>(image, c) + 500, static_cast<float>(1000 * c));
    }
    const auto strip = makeInputStrip(image, 1, 2);
    EXPECT_EQ(100u, strip->getFirstElement());
    EXPECT_EQ(200u, strip->getNbExactElements());
    EXPECT_EQ(256u, strip->getNbElements());
    EXPECT_EQ(100u, strip->getSizeX());
    EXPECT_EQ(2u, strip->getSizeY());
    for (unsigned long c = 0; c < 3; ++c)
    {
        const auto* const pPlane = static_cast<const float*>(strip->getPlane(c));
        EXPECT_EQ(0u, reinterpret_cast<std::uintptr_t>(pPlane) % 64);
        EXPECT_TRUE(std::equal(pPlane, pPlane + 200, planeData<float>(image, c) + 100));
        EXPECT_EQ(56, std::count(pPlane + 200, pPlane + 256, 0.0f)); // not the elements of the next row
    }
}

TEST(ExactStrips, writeJustTheirRows)
{
    for (const unsigned long sizeX : {1ul, 5ul, 64ul, 65ul, 100ul, 128ul})
    {
        for (unsigned long firstRow = 0; firstRow < 4; ++firstRow)
        {
            for (unsigned long nbRows = 1; firstRow + nbRows <= 4; ++nbRows)
            {
                const auto image = createImage2d(sizeX, 4, eCGT_Rgb, eIBT_UInt16);
                const auto strip = makeOutputStrip(image, firstRow, nbRows);
                ASSERT_EQ((sizeX * nbRows + 63) / 64 * 64, strip->getNbElements());
                for (unsigned long c = 0; c < 3; ++c)
                {
                    std::fill_n(static_cast<unsigned short*>(strip->getPlane(c)), strip->getNbElements(),
                                static_cast<unsigned short>(c + 1));
                }
                strip->commit();
                for (unsigned long c = 0; c < 3; ++c)
                {
                    const unsigned short* const pData = planeData<unsigned short>(image, c);
                    for (unsigned long i = 0; i < 4 * sizeX; ++i)
                    {
                        const bool bInside = i >= firstRow * sizeX && i < (firstRow + nbRows) * sizeX;
                        ASSERT_EQ(bInside ? c + 1 : 0, pData[i])
                            << sizeX << ", rows " << firstRow << " + " << nbRows << ", element " << i;
                    }
                }
            }
        }
    }
}

// What a kernel leaves alone in an output strip stays what it was.
TEST(ExactStrips, outputStagingIsFilledFromTheImage)
{
    const auto image = createImage2d(10, 3, eCGT_Grey, eIBT_UInt8);
    std::fill_n(planeData<unsigned char>(image), 30, static_cast<unsigned char>(9));
    const auto strip = makeOutputStrip(image, 1, 1);
    static_cast<unsigned char*>(strip->getPlane(0))[3] = 1;
    EXPECT_EQ(9, planeData<unsigned char>(image)[13]); // not before the commit
    strip->commit();
    EXPECT_EQ(1, planeData<unsigned char>(image)[13]);
    EXPECT_EQ(29, std::count(planeData<unsigned char>(image), planeData<unsigned char>(image) + 30, 9));
}

TEST(ExactStrips, showTheImagesOwnMemoryWhereTheyCan)
{
    const auto image = createImage2d(100, 5, eCGT_Grey, eIBT_Real);
    EXPECT_EQ(planeData<float>(image) + 300, makeOutputStrip(image, 3, 2)->getPlane(0)); // into the room
    EXPECT_EQ(planeData<float>(image), makeOutputStrip(image, 0, 5)->getPlane(0));
    const auto blocks = createImage2d(128, 5, eCGT_Grey, eIBT_Real);
    EXPECT_EQ(planeData<float>(blocks) + 128, makeOutputStrip(blocks, 1, 2)->getPlane(0)); // nothing to round
}

TEST(Strips, outliveTheImagesPointer)
{
    auto image = createImage2d(100, 100, eCGT_Grey, eIBT_Real);
    const auto strip = makeOutputStrip(image, 99, 1);
    image.reset();
    std::fill_n(static_cast<float*>(strip->getPlane(0)), strip->getNbElements(), 1.0f);
    strip->commit();
    EXPECT_EQ(1.0f, static_cast<float*>(strip->getPlane(0))[99]);
}

TEST(Strips, oneChannelStripRefusesMore)
{
    OutputImageYStrip2d strip(createImage2d(10, 1, eCGT_Grey, eIBT_Real), ElementsRange(0, 10), eStripElements::wholeBlocks);
    EXPECT_NE(nullptr, strip.getPlane());
    EXPECT_THAT(getImageError(
                    [] {
                        OutputImageYStrip2d(createImage2d(10, 1, eCGT_Rgb, eIBT_Real), ElementsRange(0, 10),
                                            eStripElements::wholeBlocks);
                    }),
                HasSubstr("must have one channel"));
}

TEST(Strips, badRowsAreRefused)
{
    const auto image = createImage2d(10, 5, eCGT_Rgb, eIBT_Real);
    EXPECT_EQ("A strip of 3 rows from row 3 on cannot be made: the image has 5 rows, and a strip 1 or more",
              getImageError([&] { makeInputStrip(image, 3, 3); }));
    EXPECT_THROW(makeInputStrip(image, 5, 1), KOVISImageException);
    EXPECT_THROW(makeInputStrip(image, 0, 0), KOVISImageException);
    EXPECT_THROW(makeOutputStrip(image, 2, ~0ul), KOVISImageException);
    EXPECT_THROW(makeOutputStrip(image, ~0ul, 2), KOVISImageException);
    EXPECT_EQ("A strip of the elements 0 to 51 cannot be made: a plane of the image has 50",
              getImageError([&] { InputImageYStripColor2d(image, ElementsRange(0, 51), eStripElements::exact); }));
    EXPECT_THROW(InputImageYStripColor2d(image, ElementsRange(0, ~0ul), eStripElements::wholeBlocks), KOVISImageException);
    EXPECT_EQ("The index 3 of the channel is out of range: it must be below 3",
              getImageError([&] { makeInputStrip(image, 0, 5)->getPlane(3); }));
}

TEST(Strips, badImagesAreRefused)
{
    EXPECT_THAT(getImageError([] { makeInputStrip(boost::shared_ptr<const BaseImage>(), 0, 1); }),
                testing::AllOf(HasSubstr("makeInputStrip"), HasSubstr("the pointer is null")));
    EXPECT_THAT(getImageError([] { makeOutputStrip(boost::shared_ptr<BaseImage>(), 0, 1); }), HasSubstr("the pointer is null"));
    EXPECT_THAT(
        getImageError([] { OutputImageYStrip2d(boost::shared_ptr<BaseImage>(), ElementsRange(0, 1), eStripElements::exact); }),
        HasSubstr("the pointer is null"));
    EXPECT_THAT(getImageError([] { makeInputStrip(createImage(makeGeometry(1, 1, 2, 1, 1, eIBT_Real)), 0, 1); }),
                HasSubstr("getSlice2d"));
    EXPECT_THAT(getImageError([] { makeOutputStrip(createImage(makeGeometry(1, 1, 1, 1, 2, eIBT_Real)), 0, 1); }),
                HasSubstr("getSlice2d"));
}
} // namespace
} // namespace kovis::image
