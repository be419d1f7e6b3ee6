#include "KOVIS/KOVISImage/SubImageExtractor.h"

#include "KOVIS/KOVISImage/CudaImage.h"
#include "KOVIS/KOVISImage/HostImage.h"
#include "KOVISImage/ImageBuilders.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <type_traits>

namespace kovis::image
{
namespace
{
using test::getImageError;
using test::makeGeometry;
using ::testing::HasSubstr;

HomogeneousImageGeometry makeGeometry(const BaseImage& image, const ColorGeometry& color)
{
    HomogeneousImageGeometry geometry;
    geometry.init(image.getGeometry().getVolumeGeometry(), color, image.getGeometry().getTemporalGeometry(), image.getSizeX(),
                  image.getSizeY(), image.getBufferType());
    return geometry;
}

TEST(ReInterpretImageData, showsTheSamePlanesWithAnotherColourGeometry)
{
    const auto image = createImage2d(5, 4, eCGT_Rgb, eIBT_Real);
    ColorGeometry user;
    user.initUser(3);
    boost::shared_ptr<const BaseImage> view;
    const ProcessingResult<bool> result =
        SubImageExtractor::reInterpretImageData<const BaseImage>(*image, makeGeometry(*image, user), view);
    ASSERT_TRUE(result.getResult()) << result.getMessage();
    EXPECT_EQ("", result.getMessage());
    EXPECT_EQ(eCGT_User, view->getColorGeometryType());
    EXPECT_EQ(3u, view->getSizeC());
    EXPECT_EQ(eCGT_Rgb, image->getColorGeometryType());
    for (unsigned long c = 0; c < 3; ++c)
    {
        EXPECT_EQ(planeData<float>(image, c), planeData<float>(view, c));
        EXPECT_EQ(64u, static_cast<const HostImage&>(*view).getPlane(c, 0, 0).m_nbRoom);
    }
}

TEST(ReInterpretImageData, viewsOutliveTheImage)
{
    auto image = createImage(makeGeometry(30, 40, 2, 3, 2, eIBT_Int32));
    planeData<int>(image, 2, 1, 1)[1199] = 42;
    ColorGeometry lab;
    lab.init(eCGT_CieLab);
    boost::shared_ptr<BaseImage> view;
    ASSERT_TRUE(SubImageExtractor::reInterpretImageData(*image, makeGeometry(*image, lab), view));
    image.reset();
    EXPECT_EQ(42, planeData<int>(view, 2, 1, 1)[1199]);
    EXPECT_EQ(2u, view->getSizeZ());
    EXPECT_EQ(2u, view->getSizeT());
    planeData<int>(view, 0, 0, 1)[0] = 1;
    boost::shared_ptr<BaseImage> second;
    ASSERT_TRUE(SubImageExtractor::extractPlane2d(*view, 0, 0, 1, second));
    view.reset();
    EXPECT_EQ(1, *planeData<int>(second));
}

TEST(ReInterpretImageData, anotherShapeIsRefused)
{
    const auto image = createImage(makeGeometry(5, 4, 3, 2, 6, eIBT_UInt8));
    boost::shared_ptr<BaseImage> view;
    for (const auto& geometry : {makeGeometry(4, 5, 3, 2, 6, eIBT_UInt8), makeGeometry(5, 5, 3, 2, 6, eIBT_UInt8),
                                 makeGeometry(5, 4, 2, 3, 6, eIBT_UInt8), makeGeometry(5, 4, 3, 6, 2, eIBT_UInt8),
                                 makeGeometry(5, 4, 3, 1, 6, eIBT_UInt8)})
    {
        const ProcessingResult<bool> result = SubImageExtractor::reInterpretImageData(*image, geometry, view);
        EXPECT_FALSE(result.getResult());
        EXPECT_THAT(result.getMessage(), HasSubstr("sizes and number of channels must agree"));
        EXPECT_EQ(nullptr, view);
    }
    for (const eImageBufferType type : {eIBT_Int8, eIBT_UInt8_8, eIBT_UInt8_11, eIBT_Real})
    {
        const ProcessingResult<bool> result =
            SubImageExtractor::reInterpretImageData(*image, makeGeometry(5, 4, 3, 2, 6, type), view);
        EXPECT_FALSE(result.getResult());
        EXPECT_EQ("An image of buffer type 2 cannot be shown with buffer type " + std::to_string(static_cast<int>(type)) +
                      ": both must be the same",
                  result.getMessage());
        EXPECT_EQ(nullptr, view);
    }
}

TEST(SubImages, slicesAndPlanesShareTheImagesMemory)
{
    const auto image = createImage(makeGeometry(5, 4, 3, 2, 6, eIBT_UInt8));
    boost::shared_ptr<BaseImage> slice;
    ASSERT_TRUE(SubImageExtractor::extractSlice2d(*image, 2, 5, slice));
    EXPECT_EQ(1u, slice->getSizeZ());
    EXPECT_EQ(1u, slice->getSizeT());
    EXPECT_EQ(2u, slice->getSizeC());
    EXPECT_EQ(eCGT_User, slice->getColorGeometryType());
    EXPECT_EQ(planeData<unsigned char>(image, 1, 2, 5), planeData<unsigned char>(slice, 1));
    EXPECT_EQ(planeData<unsigned char>(image, 1, 2, 5), planeData<unsigned char>(getSlice2d(image, 2, 5), 1));

    boost::shared_ptr<const BaseImage> plane;
    ASSERT_TRUE(SubImageExtractor::extractPlane2d<const BaseImage>(*image, 1, 2, 5, plane));
    EXPECT_EQ(1u, plane->getSizeC());
    EXPECT_EQ(eCGT_Grey, plane->getColorGeometryType());
    EXPECT_EQ(planeData<unsigned char>(image, 1, 2, 5), planeData<unsigned char>(plane));
}

TEST(SubImages, keepConstness)
{
    const boost::shared_ptr<const BaseImage> image = createImage2d(1, 1, eCGT_Grey, eIBT_Real);
    static_assert(std::is_same_v<boost::shared_ptr<const BaseImage>, decltype(getSlice2d(image, 0, 0))>);
    static_assert(std::is_same_v<boost::shared_ptr<BaseImage>, decltype(getSlice2d(boost::shared_ptr<BaseImage>(), 0, 0))>);
    EXPECT_EQ(planeData<float>(image), planeData<float>(getSlice2d(image, 0, 0)));
}

TEST(SubImages, indicesOutOfRangeAreRefused)
{
    const auto image = createImage(makeGeometry(1, 1, 3, 2, 4, eIBT_UInt8));
    boost::shared_ptr<BaseImage> view;
    EXPECT_EQ("The index 3 of the slice is out of range: it must be below 3",
              SubImageExtractor::extractSlice2d(*image, 3, 0, view).getMessage());
    EXPECT_EQ("The index 4 of the time step is out of range: it must be below 4",
              SubImageExtractor::extractSlice2d(*image, 0, 4, view).getMessage());
    EXPECT_EQ("The index 2 of the channel is out of range: it must be below 2",
              SubImageExtractor::extractPlane2d(*image, 2, 0, 0, view).getMessage());
    EXPECT_FALSE(SubImageExtractor::extractPlane2d(*image, 0, 3, 0, view));
    EXPECT_FALSE(SubImageExtractor::extractPlane2d(*image, 0, 0, 4, view));
    EXPECT_EQ(nullptr, view);
    EXPECT_EQ("The index 3 of the slice is out of range: it must be below 3", getImageError([&] { getSlice2d(image, 3, 0); }));
    EXPECT_EQ("The index 4 of the time step is out of range: it must be below 4",
              getImageError([&] { getSlice2d(image, 0, 4); }));
    EXPECT_THAT(getImageError([] { getSlice2d(boost::shared_ptr<const BaseImage>(), 0, 0); }), HasSubstr("the pointer is null"));
}

TEST(SubImages, gpuImagesAreRefused)
{
    int devicePlane = 0;
    CudaImage image(makeGeometry(4, 3, 1, 1, 1, eIBT_Real), {&devicePlane}, boost::shared_ptr<const void>());
    boost::shared_ptr<BaseImage> view;
    const std::string message =
        "The planes of the image (4 x 3, 1 channel, f32) lie in the memory of a GPU and cannot be used here: give an "
        "image in host memory";
    EXPECT_EQ(message, SubImageExtractor::reInterpretImageData<BaseImage>(image, image.getGeometry(), view).getMessage());
    EXPECT_EQ(message, SubImageExtractor::extractSlice2d<BaseImage>(image, 0, 0, view).getMessage());
    EXPECT_EQ(message, SubImageExtractor::extractPlane2d<BaseImage>(image, 0, 0, 0, view).getMessage());
    EXPECT_EQ(nullptr, view);
}
} // namespace
} // namespace kovis::image
