#include "KOVIS/KOVISImage/HostImage.h"
#include "KOVIS/KOVISImage/ImageFactory.h"
#include "KOVISImage/GuardedMemory.h"
#include "KOVISImage/ImageBuilders.h"

#include <boost/make_shared.hpp>
#include <boost/weak_ptr.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <vector>

namespace kovis::image
{
namespace
{
using test::getImageError;
using test::GuardedMemory;
using test::makeGeometry;
using ::testing::HasSubstr;

using Guards = std::vector<boost::shared_ptr<GuardedMemory>>;

boost::shared_ptr<BaseImage> wrapGuarded(unsigned long sizeX, unsigned long sizeY, GuardedMemory::ePlace place, Guards& guards,
                                         std::size_t nbRoom = 0)
{
    std::vector<void*> planes;
    guards.clear();
    for (int c = 0; c < 3; ++c)
    {
        guards.push_back(boost::make_shared<GuardedMemory>((sizeX * sizeY + nbRoom) * sizeof(unsigned short), place));
        planes.push_back(guards.back()->getData());
    }
    return wrapImage(makeGeometry(sizeX, sizeY, 1, 3, 1, eIBT_UInt16), planes, boost::make_shared<Guards>(guards), nbRoom);
}

unsigned short getPattern(unsigned long c, unsigned long i)
{
    return static_cast<unsigned short>(c * 20011 + i * 7 + 1);
}

// Reads and writes all that strips of a wrapped image show, up to their last block.
void runStrips(const boost::shared_ptr<BaseImage>& image, unsigned long nbRows, eStripElements elements)
{
    const unsigned long sizeX = image->getSizeX();
    const unsigned long nbPlane = sizeX * image->getSizeY();
    for (unsigned long begin = 0; begin < nbPlane; begin += nbRows * sizeX)
    {
        const ElementsRange range(begin, std::min(begin + nbRows * sizeX, nbPlane));
        const InputImageYStripColor2d input(image, range, elements);
        OutputImageYStripColor2d output(image, range, elements);
        ASSERT_EQ(input.getNbElements(), output.getNbElements());
        for (unsigned long c = 0; c < 3; ++c)
        {
            const auto* const pIn = static_cast<const unsigned short*>(input.getPlane(c));
            auto* const pOut = static_cast<unsigned short*>(output.getPlane(c));
            const unsigned long first = input.getFirstElement();
            for (unsigned long i = 0; i < input.getNbElements(); ++i)
            {
                if (i < input.getNbExactElements())
                {
                    ASSERT_EQ(getPattern(c, first + i), pIn[i]);
                    ASSERT_EQ(getPattern(c, first + i), pOut[i]);
                }
            }
            for (unsigned long i = 0; i < output.getNbElements(); ++i)
            {
                pOut[i] = static_cast<unsigned short>(getPattern(c, first + i) ^ 0xFFFF);
            }
        }
        output.commit();
    }
}

void checkWrapped(unsigned long sizeX, unsigned long sizeY, unsigned long nbRows, eStripElements elements)
{
    for (const auto place : {GuardedMemory::ePlace::beforeGuard, GuardedMemory::ePlace::afterGuard})
    {
        Guards guards;
        const auto image = wrapGuarded(sizeX, sizeY, place, guards);
        for (unsigned long c = 0; c < 3; ++c)
        {
            for (unsigned long i = 0; i < sizeX * sizeY; ++i)
            {
                planeData<unsigned short>(image, c)[i] = getPattern(c, i);
            }
        }
        runStrips(image, nbRows, elements);
        for (unsigned long c = 0; c < 3; ++c)
        {
            ASSERT_TRUE(guards[c]->isOutsideUntouched()) << sizeX << " x " << sizeY << ", " << nbRows << " rows";
            for (unsigned long i = 0; i < sizeX * sizeY; ++i)
            {
                ASSERT_EQ(getPattern(c, i) ^ 0xFFFF, planeData<unsigned short>(image, c)[i])
                    << sizeX << " x " << sizeY << ", " << nbRows << " rows, element " << i;
            }
        }
    }
}

TEST(WrapImage, stripsNeverLeaveTheCallersPlanes)
{
    for (unsigned long sizeX = 1; sizeX <= 130; ++sizeX)
    {
        for (const unsigned long nbRows : {1ul, 2ul, 5ul})
        {
            checkWrapped(sizeX, 5, nbRows, eStripElements::wholeBlocks);
            checkWrapped(sizeX, 5, nbRows, eStripElements::exact);
            if (testing::Test::HasFatalFailure())
            {
                return;
            }
        }
    }
    checkWrapped(2048, 3, 1, eStripElements::wholeBlocks);
}

TEST(WrapImage, slackOfStagingIsZero)
{
    Guards guards;
    const auto image = wrapGuarded(10, 7, GuardedMemory::ePlace::beforeGuard, guards);
    const InputImageYStripColor2d strip(image, ElementsRange(0, 70), eStripElements::wholeBlocks);
    ASSERT_EQ(128u, strip.getNbElements());
    ASSERT_EQ(70u, strip.getNbExactElements());
    for (unsigned long c = 0; c < 3; ++c)
    {
        const auto* const pPlane = static_cast<const unsigned short*>(strip.getPlane(c));
        EXPECT_EQ(0u, reinterpret_cast<std::uintptr_t>(pPlane) % 64);
        EXPECT_EQ(0, std::memcmp(pPlane, guards[c]->getData(), 140));
        EXPECT_EQ(58, std::count(pPlane + 70, pPlane + 128, 0));
    }
}

TEST(WrapImage, stagesOnlyWhatItMust)
{
    Guards guards;
    const auto image = wrapGuarded(100, 5, GuardedMemory::ePlace::beforeGuard, guards); // 500 elements
    const auto* const pPlane = planeData<unsigned short>(image);
    EXPECT_EQ(pPlane, OutputImageYStripColor2d(image, ElementsRange(0, 300), eStripElements::wholeBlocks).getPlane(0));
    EXPECT_NE(pPlane + 320, OutputImageYStripColor2d(image, ElementsRange(300, 500), eStripElements::wholeBlocks).getPlane(0));

    const auto roomy = wrapGuarded(100, 5, GuardedMemory::ePlace::beforeGuard, guards, 12); // to 512
    EXPECT_EQ(planeData<unsigned short>(roomy) + 320,
              OutputImageYStripColor2d(roomy, ElementsRange(300, 500), eStripElements::wholeBlocks).getPlane(0));
    const auto tight = wrapGuarded(100, 5, GuardedMemory::ePlace::beforeGuard, guards, 11);
    EXPECT_NE(planeData<unsigned short>(tight) + 320,
              OutputImageYStripColor2d(tight, ElementsRange(300, 500), eStripElements::wholeBlocks).getPlane(0));
}

TEST(WrapImage, showsTheCallersPlanesWithoutACopy)
{
    std::vector<float> data(2 * 3 * 4 * 5 * 6);
    std::vector<void*> planes;
    for (std::size_t i = 0; i < 4 * 5 * 6; ++i)
    {
        data[i * 6] = static_cast<float>(i);
        planes.push_back(&data[i * 6]);
    }
    const auto image = wrapImage(makeGeometry(2, 3, 4, 5, 6, eIBT_Real), planes, boost::shared_ptr<const void>());
    std::size_t i = 0;
    for (unsigned long t = 0; t < 6; ++t)
    {
        for (unsigned long z = 0; z < 4; ++z)
        {
            for (unsigned long c = 0; c < 5; ++c, ++i)
            {
                EXPECT_EQ(planes[i], planeData<float>(image, c, z, t));
                EXPECT_EQ(static_cast<float>(i), *planeData<float>(image, c, z, t));
            }
        }
    }
}

TEST(WrapImage, keepsTheOwnerAsLongAsTheImageOrAViewLives)
{
    auto owner = boost::make_shared<std::vector<float>>(12, 3.0f);
    const boost::weak_ptr<std::vector<float>> watch = owner;
    auto image = wrapImage(makeGeometry(2, 2, 1, 3, 1, eIBT_Real), {&(*owner)[0], &(*owner)[4], &(*owner)[8]}, owner);
    owner.reset();
    EXPECT_FALSE(watch.expired());
    auto view = getSlice2d(image, 0, 0);
    image.reset();
    EXPECT_FALSE(watch.expired());
    EXPECT_EQ(3.0f, planeData<float>(view, 2)[3]);
    view.reset();
    EXPECT_TRUE(watch.expired());
}

TEST(WrapImage, badPlanesAreRefused)
{
    alignas(4) static unsigned char data[100];
    const HomogeneousImageGeometry geometry = makeGeometry(2, 2, 1, 2, 1, eIBT_Real);
    const boost::shared_ptr<const void> owner;
    EXPECT_EQ("The image cannot be made: 1 planes are given, and its geometry has 2",
              getImageError([&] { wrapImage(geometry, {data}, owner); }));
    EXPECT_THROW(wrapImage(geometry, {data, data, data}, owner), KOVISImageException);
    EXPECT_EQ("The image cannot be made: the pointer of plane 1 is null", getImageError(
                                                                              [&] {
                                                                                  wrapImage(geometry, {data, nullptr}, owner);
                                                                              }));
    EXPECT_EQ("The image cannot be made: plane 1 of f32 is not aligned to 4 bytes",
              getImageError(
                  [&] {
                      wrapImage(geometry, {data, data + 2}, owner);
                  }));
    EXPECT_THAT(getImageError(
                    [&] {
                        wrapImage(makeGeometry(0, 2, 1, 2, 1, eIBT_Real), {data, data}, owner);
                    }),
                HasSubstr("size in X is 0"));
    EXPECT_THAT(getImageError(
                    [&] {
                        wrapImage(makeGeometry(~0ul, 2, 1, 2, 1, eIBT_Real), {data, data}, owner);
                    }),
                HasSubstr("more than the address space holds"));
    EXPECT_THAT(getImageError(
                    [&] {
                        wrapImage(makeGeometry(2, 2, 1, 2, 1, eIBT_None), {data, data}, owner);
                    }),
                HasSubstr("buffer type is 0"));
    EXPECT_THAT(getImageError(
                    [&] {
                        wrapImage(geometry, {data, data + 32}, owner, ~std::size_t(0));
                    }),
                HasSubstr("elements of room"));
}
} // namespace
} // namespace kovis::image
