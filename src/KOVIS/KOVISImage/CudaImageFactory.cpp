#include "KOVIS/KOVISImage/CudaImageFactory.h"

#include "KOVIS/KOVISImage/GpuScope.h"
#include "KOVIS/KOVISImage/ImageFactory.h"
#include "KOVIS/KOVISImage/ImageSizes.h"
#include "KOVIS/KOVISImage/KOVISImageLogMessages.h"
#include "KOVIS/KOVISImage/getFormatedName.h"

#include <boost/make_shared.hpp>

#include <string>
#include <utility>
#include <vector>

namespace kovis::image
{
namespace
{
const char* const g_file = "KOVIS/KOVISImage/CudaImageFactory.cpp";

// Planes begin where the device likes to fetch whole lines.
constexpr std::size_t g_planeAlignment = 256;

// The bytes from one plane's start to the next; false where the planes together overflow.
bool getPlanePitch(const detail::ImageSizes& sizes, std::size_t& pitch, std::size_t& nbBytes)
{
    // A plane's bytes are far below the end of the address space, as getImageSizes sees to.
    pitch = (sizes.m_nbPlaneBytes + g_planeAlignment - 1) / g_planeAlignment * g_planeAlignment;
    return !__builtin_mul_overflow(pitch, sizes.m_nbPlanes, &nbBytes);
}

boost::shared_ptr<CudaImage> makeImage(const BaseImageGeometry& geometry, const SourcePlace& place, bool bZeros)
{
    const detail::ImageSizes sizes = detail::getImageSizes(geometry, place);
    const detail::GpuScope scope(place);
    std::size_t pitch = 0;
    std::size_t nbBytes = 0;
    if (!getPlanePitch(sizes, pitch, nbBytes))
    {
        throwImageMessage(eImageMessage::eIM_GpuCall, place, "the memory of an image", "its size overflows");
    }
    // One run of memory for all planes: it is there as a whole or not at all.
    const auto memory = boost::make_shared<gpu::DeviceMemory>();
    scope.check(memory->allocate(nbBytes), "the memory of " + std::to_string(nbBytes) + " bytes for an image");
    if (bZeros)
    {
        scope.check(gpu::CudaRuntime::getInstance().fillWithZeros(memory->getData(), nbBytes), "to fill an image with zeros");
    }
    std::vector<void*> planes(sizes.m_nbPlanes);
    for (std::size_t i = 0; i < planes.size(); ++i)
    {
        planes[i] = static_cast<char*>(memory->getData()) + i * pitch;
    }
    return boost::make_shared<CudaImage>(geometry, std::move(planes), memory);
}

bool haveSamePixels(const BaseImage& a, const BaseImage& b)
{
    return a.getSizeX() == b.getSizeX() && a.getSizeY() == b.getSizeY() && a.getSizeZ() == b.getSizeZ() &&
           a.getSizeC() == b.getSizeC() && a.getSizeT() == b.getSizeT() &&
           getStorageType(a.getBufferType()) == getStorageType(b.getBufferType());
}

// Calls copyPlane(host pointer, device pointer, bytes) for each plane.
template <class TCopy>
void copyPlanes(const BaseImage& source, const BaseImage& target, const BaseImage& hostImage, const CudaImage& gpuImage,
                const SourcePlace& place, const char* request, const TCopy& copyPlane)
{
    if (!haveSamePixels(source, target))
    {
        throwImageMessage(eImageMessage::eIM_CopySize, place, getFormatedName(source, eFT_Short),
                          getFormatedName(target, eFT_Short));
    }
    const detail::GpuScope scope(place);
    const std::size_t nbBytes = hostImage.getSizeX() * hostImage.getSizeY() * getElementSize(hostImage.getBufferType());
    for (unsigned long t = 0; t < hostImage.getSizeT(); ++t)
    {
        for (unsigned long z = 0; z < hostImage.getSizeZ(); ++z)
        {
            for (unsigned long c = 0; c < hostImage.getSizeC(); ++c)
            {
                void* const pHost = detail::getPlaneData(hostImage, hostImage.getBufferType(), c, z, t);
                scope.check(copyPlane(pHost, gpuImage.getPlane(c, z, t), nbBytes), request);
            }
        }
    }
}
} // namespace

boost::shared_ptr<CudaImage> createCudaImage(const BaseImageGeometry& geometry)
{
    return makeImage(geometry,
                     {"boost::shared_ptr<kovis::image::CudaImage> kovis::image::createCudaImage(const "
                      "kovis::image::BaseImageGeometry&)",
                      g_file, __LINE__},
                     true);
}

boost::shared_ptr<CudaImage> uploadImage(const BaseImage& hostImage)
{
    const SourcePlace place{
        "boost::shared_ptr<kovis::image::CudaImage> kovis::image::uploadImage(const kovis::image::BaseImage&)", g_file, __LINE__};
    // Every element that anybody can read is written by the copy.
    const boost::shared_ptr<CudaImage> image = makeImage(hostImage.getGeometry(), place, false);
    copyToGpu(hostImage, *image);
    return image;
}

boost::shared_ptr<BaseImage> downloadImage(const CudaImage& gpuImage)
{
    const boost::shared_ptr<BaseImage> image = createImage(gpuImage.getGeometry());
    copyToHost(gpuImage, *image);
    return image;
}

void copyToGpu(const BaseImage& hostImage, CudaImage& gpuImage)
{
    copyPlanes(hostImage, gpuImage, hostImage, gpuImage,
               {"void kovis::image::copyToGpu(const kovis::image::BaseImage&, kovis::image::CudaImage&)", g_file, __LINE__},
               "the upload of a plane",
               [](const void* pHost, void* pDevice, std::size_t nbBytes)
               { return gpu::CudaRuntime::getInstance().copyToDevice(pDevice, pHost, nbBytes); });
}

void copyToHost(const CudaImage& gpuImage, BaseImage& hostImage)
{
    copyPlanes(gpuImage, hostImage, hostImage, gpuImage,
               {"void kovis::image::copyToHost(const kovis::image::CudaImage&, kovis::image::BaseImage&)", g_file, __LINE__},
               "the download of a plane",
               [](void* pHost, const void* pDevice, std::size_t nbBytes)
               { return gpu::CudaRuntime::getInstance().copyToHost(pHost, pDevice, nbBytes); });
}

CudaImage& getCudaImage(BaseImage& image)
{
    // The image itself is not const, so neither is the view of it.
    return const_cast<CudaImage&>(getCudaImage(static_cast<const BaseImage&>(image)));
}

const CudaImage& getCudaImage(const BaseImage& image)
{
    const auto* const pImage = dynamic_cast<const CudaImage*>(&image);
    if (pImage == nullptr)
    {
        throwImageMessage(
            eImageMessage::eIM_NotGpuImage,
            {"const kovis::image::CudaImage& kovis::image::getCudaImage(const kovis::image::BaseImage&)", g_file, __LINE__},
            getFormatedName(image, eFT_Short));
    }
    return *pImage;
}
} // namespace kovis::image
