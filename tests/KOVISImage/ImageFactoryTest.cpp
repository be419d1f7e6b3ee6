#include "KOVIS/KOVISImage/ImageFactory.h"

#include "KOVIS/KOVISImage/CudaImage.h"
#include "KOVIS/KOVISImage/HostImage.h"
#include "KOVISImage/ImageBuilders.h"

#include <boost/make_shared.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <limits>

namespace kovis::image
{
namespace
{
using test::getImageError;
using test::makeGeometry;
using ::testing::HasSubstr;

TEST(CreateImage, reportsItsGeometry)
{
    const auto image = createImage(makeGeometry(2, 3, 4, 5, 6, eIBT_UInt8_11));
    EXPECT_EQ(2u, image->getSizeX());
    EXPECT_EQ(3u, image->getSizeY());
    EXPECT_EQ(4u, image->getSizeZ());
    EXPECT_EQ(5u, image->getSizeC());
    EXPECT_EQ(6u, image->getSizeT());
    EXPECT_EQ(eIBT_UInt8_11, image->getBufferType());
    EXPECT_EQ(eCGT_User, image->getColorGeometryType());
    EXPECT_FALSE(image->isGpuImage());

    const auto rgb = createImage2d(7, 8, eCGT_Rgb, eIBT_Real);
    EXPECT_EQ(3u, rgb->getSizeC());
    EXPECT_EQ(1u, rgb->getSizeZ());
    EXPECT_EQ(1u, rgb->getSizeT());
    EXPECT_EQ(9u, createImageUser2d(1, 1, 9, eIBT_Real)->getSizeC());
}

// Zeros, aligned, and room of 64 elements that can be read and written, for sizes around every way memory is had.
TEST(CreateImage, planesAreZeroAlignedAndHaveRoom)
{
    for (const unsigned long sizeX : {1ul, 63ul, 64ul, 65ul, 1000ul, 8127ul, 8128ul, 8129ul, 16384ul, 100000ul, 600001ul})
    {
        const auto image = createImageUser2d(sizeX, 1, 3, eIBT_Real);
        for (unsigned long c = 0; c < 3; ++c)
        {
            float* const pData = planeData<float>(image, c);
            EXPECT_EQ(0u, reinterpret_cast<std::uintptr_t>(pData) % 64);
            EXPECT_GE(static_cast<const HostImage&>(*image).getPlane(c, 0, 0).m_nbRoom, 64u);
            EXPECT_EQ(pData, static_cast<const HostImage&>(*image).getPlane(c, 0, 0).m_pData);
            EXPECT_EQ(static_cast<long>(sizeX + 64), std::count(pData, pData + sizeX + 64, 0.0f)) << sizeX;
            std::fill(pData, pData + sizeX + 64, static_cast<float>(c + 1));
        }
        for (unsigned long c = 0; c < 3; ++c)
        {
            const float* const pData = planeData<float>(image, c);
            EXPECT_EQ(static_cast<long>(sizeX + 64), std::count(pData, pData + sizeX + 64, static_cast<float>(c + 1))) << sizeX;
        }
    }
}

TEST(CreateImage, everyPlaneIsItsOwn)
{
    const auto image = createImage(makeGeometry(3, 1, 2, 3, 4, eIBT_UInt16));
    unsigned short value = 0;
    for (unsigned long t = 0; t < 4; ++t)
    {
        for (unsigned long z = 0; z < 2; ++z)
        {
            for (unsigned long c = 0; c < 3; ++c)
            {
                std::fill_n(planeData<unsigned short>(image, c, z, t), 3 + 64, ++value);
            }
        }
    }
    value = 0;
    for (unsigned long t = 0; t < 4; ++t)
    {
        for (unsigned long z = 0; z < 2; ++z)
        {
            for (unsigned long c = 0; c < 3; ++c)
            {
                const unsigned short* const pData = planeData<unsigned short>(image, c, z, t);
                ++value;
                EXPECT_EQ(3 + 64, std::count(pData, pData + 3 + 64, value));
            }
        }
    }
}

TEST(CreateImage, sizeZeroIsRefused)
{
    EXPECT_EQ("The image cannot be made: its size in X is 0, and must be 1 or more",
              getImageError([] { createImage2d(0, 1, eCGT_Rgb, eIBT_Real); }));
    EXPECT_THAT(getImageError([] { createImage2d(1, 0, eCGT_Rgb, eIBT_Real); }), HasSubstr("size in Y is 0"));
    EXPECT_THAT(getImageError([] { createImage(makeGeometry(1, 1, 0, 1, 1, eIBT_Real)); }), HasSubstr("number of slices is 0"));
    EXPECT_THAT(getImageError([] { createImage(makeGeometry(1, 1, 1, 1, 0, eIBT_Real)); }),
                HasSubstr("number of time steps is 0"));
    EXPECT_THAT(getImageError([] { createImageUser2d(1, 1, 0, eIBT_Real); }), HasSubstr("createImageUser2d"));
    EXPECT_THAT(getImageError([] { createImage2d(1, 1, eCGT_User, eIBT_Real); }), HasSubstr("createImageUser2d"));
}

TEST(CreateImage, bufferTypeOutsideIsRefused)
{
    for (const int type : {0, 12, -1, 2147483647})
    {
        EXPECT_THAT(getImageError([type] { createImage2d(1, 1, eCGT_Rgb, static_cast<eImageBufferType>(type)); }),
                    HasSubstr("its buffer type is " + std::to_string(type) + ", and must be 1 to 11"));
    }
}

TEST(CreateImage, sizesThatOverflowAreRefused)
{
    const unsigned long big = std::numeric_limits<unsigned long>::max();
    const unsigned long half = 1ul << 32;
    const unsigned long sizes[][5] = {{big, 1, 1, 1, 1},
                                      {1, big, 1, 1, 1},
                                      {1, 1, big, 1, 1},
                                      {1, 1, 1, big, 1},
                                      {1, 1, 1, 1, big},
                                      {half, half, 1, 1, 1},
                                      {1, 1, half, half, 1},
                                      {1, 1, half, 1, half},
                                      {big / 4, 1, 1, 1, 1},
                                      {big / 4 + 1, 1, 1, 1, 1},
                                      {1ul << 16, 1ul << 16, 1ul << 16, 1ul << 16, 1},
                                      {big - 63, 1, 1, 1, 1},
                                      {1ul << 61, 1, 1, 1, 1}};
    for (const auto& s : sizes)
    {
        EXPECT_THAT(getImageError([&s] { createImage(makeGeometry(s[0], s[1], s[2], s[3], s[4], eIBT_Real)); }),
                    HasSubstr("more than the address space holds"));
    }
}

// No overflow, but more than any machine has.
TEST(CreateImage, memoryThatCannotBeHadIsRefused)
{
    EXPECT_EQ(
        "The image cannot be made: the memory of 4611686018427388416 bytes that 1152921504606846976 x 1 x 1, 1 time steps, 1 "
        "channels, f32 needs cannot be had",
        getImageError([] { createImage2d(1ul << 60, 1, eCGT_Grey, eIBT_Real); }));
    for (const unsigned long sizeX : {1ul << 44, 1ul << 50, 1ul << 60})
    {
        EXPECT_THAT(getImageError([sizeX] { createImage2d(sizeX, 1, eCGT_Grey, eIBT_Real); }),
                    testing::AllOf(HasSubstr("cannot be had"), HasSubstr(std::to_string((sizeX + 64) * 4 + 256) + " bytes")));
        EXPECT_THAT(getImageError([sizeX] { createImage(makeGeometry(1, 1, sizeX / 64, 1, 1, eIBT_UInt8)); }),
                    HasSubstr("cannot be had"));
    }
}

TEST(CreateImage, errorsNameTheirPlace)
{
    try
    {
        createImage2d(0, 1, eCGT_Rgb, eIBT_Real);
        FAIL();
    }
    catch (const BaseException& e)
    {
        EXPECT_EQ("boost::shared_ptr<kovis::image::BaseImage> kovis::image::createImage(const kovis::image::BaseImageGeometry&)",
                  e.getFunction());
        EXPECT_EQ("KOVIS/KOVISImage/ImageFactory.cpp", e.getFile());
    }
}

template <class T>
class PlaneDataTest : public testing::Test
{
};
using ElementTypes = testing::Types<signed char, unsigned char, short, unsigned short, int, unsigned int, float>;
TYPED_TEST_SUITE(PlaneDataTest, ElementTypes);

TYPED_TEST(PlaneDataTest, givesEveryBufferTypeOfItsStorageAndNoOther)
{
    const char* const names[] = {"", "i8", "u8", "i16", "u16", "i32", "u32", "f32", "u8", "u16", "u32", "u8"};
    const int storages[] = {0, 1, 2, 3, 4, 5, 6, 7, 2, 4, 6, 2};
    for (int type = 1; type <= 11; ++type)
    {
        const auto image = createImage2d(5, 4, eCGT_Rgb, static_cast<eImageBufferType>(type));
        if (storages[type] == static_cast<int>(BufferTypeOf<TypeParam>::g_value))
        {
            TypeParam* const pData = planeData<TypeParam>(image, 2);
            pData[19] = 7;
            EXPECT_EQ(pData, planeData<TypeParam>(*image, 2));
            EXPECT_EQ(7, planeData<TypeParam>(boost::shared_ptr<const BaseImage>(image), 2)[19]);
        }
        else
        {
            EXPECT_EQ(std::string("The image (5 x 4, 3 channels, ") + names[type] + ") holds elements of type " + names[type] +
                          ", and they were asked for as " + names[static_cast<int>(BufferTypeOf<TypeParam>::g_value)],
                      getImageError([&image] { (void)planeData<TypeParam>(image); }));
        }
    }
}

TEST(PlaneData, constImagesGiveConstElements)
{
    const boost::shared_ptr<const BaseImage> image = createImage2d(1, 1, eCGT_Grey, eIBT_Real);
    static_assert(std::is_same_v<const float*, decltype(planeData<float>(image))>);
    static_assert(std::is_same_v<const float*, decltype(planeData<float>(*image))>);
    EXPECT_EQ(0.0f, *planeData<float>(image));
}

TEST(PlaneData, indexOutOfRangeIsRefused)
{
    const auto image = createImage(makeGeometry(1, 1, 2, 3, 4, eIBT_Real));
    EXPECT_NE(nullptr, planeData<float>(image, 2, 1, 3));
    EXPECT_EQ("The index 3 of the channel is out of range: it must be below 3",
              getImageError([&] { (void)planeData<float>(image, 3); }));
    EXPECT_EQ("The index 2 of the slice is out of range: it must be below 2",
              getImageError([&] { (void)planeData<float>(image, 0, 2); }));
    EXPECT_EQ("The index 4 of the time step is out of range: it must be below 4",
              getImageError([&] { (void)planeData<float>(image, 0, 0, 4); }));
    EXPECT_THAT(getImageError([&] { (void)planeData<float>(image, ~0ul); }), HasSubstr("out of range"));
}

TEST(CudaImage, isRefusedWherePlanesAreRead)
{
    int devicePlane[3] = {};
    const HomogeneousImageGeometry geometry = makeGeometry(4, 4, 1, 3, 1, eIBT_Real);
    const auto image = boost::make_shared<CudaImage>(
        geometry, std::vector<void*>{&devicePlane[0], &devicePlane[1], &devicePlane[2]}, boost::shared_ptr<const void>());
    EXPECT_TRUE(image->isGpuImage());
    EXPECT_EQ(&devicePlane[2], image->getPlane(2, 0, 0));
    EXPECT_THROW(image->getPlane(3, 0, 0), KOVISImageException);
    EXPECT_THAT(getImageError([&] { (void)planeData<float>(*image); }), HasSubstr("memory of a GPU"));
    EXPECT_THAT(getImageError([&] { makeInputStrip(image, 0, 1); }), HasSubstr("memory of a GPU"));
    EXPECT_THAT(getImageError([&] { makeOutputStrip(image, 0, 1); }), HasSubstr("memory of a GPU"));
    EXPECT_THAT(getImageError([&] { getSlice2d(boost::shared_ptr<BaseImage>(image), 0, 0); }), HasSubstr("memory of a GPU"));
    EXPECT_THAT(getImageError([&] { CudaImage(geometry, {}, boost::shared_ptr<const void>()); }),
                HasSubstr("0 planes are given"));
    EXPECT_THAT(getImageError(
                    [&] {
                        CudaImage(geometry, {&devicePlane[0], nullptr, nullptr}, boost::shared_ptr<const void>());
                    }),
                HasSubstr("plane 1 is null"));
}
} // namespace
} // namespace kovis::image
