// The plane pointers of images on an emulated device, by the element type that they are asked for as.
#include "KOVIS/KOVISBaseImageTools/extractBufferDataCollToGpu.h"
#include "KOVIS/KOVISBaseImageTools/KOVISBaseImageToolsLog.h"
#include "KOVIS/KOVISImage/CudaImageFactory.h"
#include "KOVIS/KOVISImage/ImageFactory.h"
#include "support/FakeCudaRuntime.h"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <utility>

namespace kovis::image::tools
{
namespace
{
// Before any test asks for devices.
[[maybe_unused]] test::FakeCudaRuntime& g_runtime = test::FakeCudaRuntime::install();

boost::shared_ptr<CudaImage> makeImage(const eImageBufferType& bufferType)
{
    return createCudaImage(createImageUser2d(3, 2, 2, bufferType)->getGeometry());
}

template <class T>
bool isTaken(CudaImage& image)
{
    static_assert(std::is_same_v<decltype(extractBufferDataCollToGpu<T>(image)), T**>);
    static_assert(std::is_same_v<decltype(extractBufferDataCollToGpu<T>(std::as_const(image))), T const**>);
    try
    {
        T** const table = extractBufferDataCollToGpu<T>(image);
        EXPECT_EQ(static_cast<void*>(image.getPlaneTable()), static_cast<void*>(table));
        EXPECT_EQ(const_cast<T const**>(table), extractBufferDataCollToGpu<T>(std::as_const(image)));
        return true;
    }
    catch (const KOVISBaseImageToolsException&)
    {
        EXPECT_THROW(extractBufferDataCollToGpu<T>(std::as_const(image)), KOVISBaseImageToolsException);
        return false;
    }
}

TEST(ExtractBufferDataCollToGpu, TakesTheElementTypeOfTheStorageAlone)
{
    constexpr int g_types[] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11};
    // The plain type of the same elements.
    constexpr int g_storages[] = {1, 2, 3, 4, 5, 6, 7, 2, 4, 6, 2};
    for (std::size_t i = 0; i < std::size(g_types); ++i)
    {
        const auto image = makeImage(static_cast<eImageBufferType>(g_types[i]));
        EXPECT_EQ(g_storages[i] == 1, isTaken<signed char>(*image)) << g_types[i];
        EXPECT_EQ(g_storages[i] == 2, isTaken<unsigned char>(*image)) << g_types[i];
        EXPECT_EQ(g_storages[i] == 3, isTaken<short>(*image)) << g_types[i];
        EXPECT_EQ(g_storages[i] == 4, isTaken<unsigned short>(*image)) << g_types[i];
        EXPECT_EQ(g_storages[i] == 5, isTaken<int>(*image)) << g_types[i];
        EXPECT_EQ(g_storages[i] == 6, isTaken<unsigned int>(*image)) << g_types[i];
        EXPECT_EQ(g_storages[i] == 7, isTaken<float>(*image)) << g_types[i];
    }
}

TEST(ExtractBufferDataCollToGpu, SaysWhichElementsThereAre)
{
    const auto image = makeImage(eIBT_UInt16_9);
    try
    {
        extractBufferDataCollToGpu<float>(*image);
        FAIL() << "nothing was thrown";
    }
    catch (const KOVISBaseImageToolsException& e)
    {
        const std::string text = e.what();
        EXPECT_NE(std::string::npos, text.find("hold elements of type u16, and were asked for as f32")) << text;
    }
}
} // namespace
} // namespace kovis::image::tools
