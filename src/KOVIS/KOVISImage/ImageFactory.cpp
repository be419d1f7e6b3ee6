#include "KOVIS/KOVISImage/ImageFactory.h"

#include "KOVIS/KOVISImage/HostImage.h"
#include "KOVIS/KOVISImage/ImageSizes.h"
#include "KOVIS/KOVISImage/KOVISImageLogMessages.h"
#include "KOVIS/KOVISImage/PlaneMemory.h"
#include "KOVIS/KOVISImage/getFormatedName.h"
#include "KOVIS/KOVISImage/getHostImage.h"

#include <boost/make_shared.hpp>

#include <cstdint>
#include <exception>
#include <new>
#include <string>

#include <sys/sysinfo.h>

namespace kovis::image
{
namespace
{
const char* const g_file = "KOVIS/KOVISImage/ImageFactory.cpp";

std::string describe(const BaseImageGeometry& geometry)
{
    return std::to_string(geometry.getSizeX()) + " x " + std::to_string(geometry.getSizeY()) + " x " +
           std::to_string(geometry.getSizeZ()) + ", " + std::to_string(geometry.getSizeT()) + " time steps, " +
           std::to_string(geometry.getSizeC()) + " channels, " + getElementTypeName(geometry.getBufferType());
}

// Whether the machine could ever hold that much. Asked ahead, as a system that promises more memory than it has ends the process
// only when the memory is used.
bool fitsMachine(std::size_t nbBytes)
{
    struct sysinfo info = {};
    std::size_t nbMachineBytes = 0;
    return ::sysinfo(&info) != 0 || __builtin_mul_overflow(info.totalram + info.totalswap, info.mem_unit, &nbMachineBytes) ||
           nbBytes <= nbMachineBytes;
}

std::vector<ImagePlane> makePlanes(const detail::ImageSizes& sizes)
{
    if (!fitsMachine(sizes.m_nbBytes))
    {
        throw std::bad_alloc();
    }
    std::vector<ImagePlane> planes(sizes.m_nbPlanes);
    for (ImagePlane& plane : planes)
    {
        const boost::shared_ptr<detail::PlaneMemory> memory = boost::make_shared<detail::PlaneMemory>(sizes.m_nbPlaneBytes);
        plane.m_owner = memory;
        plane.m_pData = memory->getData();
        plane.m_nbRoom = detail::g_nbRoomElements;
        plane.m_pMemory = memory.get();
    }
    return planes;
}

HomogeneousImageGeometry makeGeometry2d(unsigned long sizeX, unsigned long sizeY, const ColorGeometry& color,
                                        const eImageBufferType& bufferType)
{
    HomogeneousImageGeometry geometry;
    geometry.init(VolumeGeometry(), color, TemporalGeometry(), sizeX, sizeY, bufferType);
    return geometry;
}

void checkPlanes(const BaseImageGeometry& geometry, const std::vector<void*>& planes, const SourcePlace& place)
{
    const std::size_t alignment = getElementSize(geometry.getBufferType());
    for (std::size_t i = 0; i < planes.size(); ++i)
    {
        if (planes[i] == nullptr)
        {
            throwImageMessage(eImageMessage::eIM_NullPlane, place, i);
        }
        if (reinterpret_cast<std::uintptr_t>(planes[i]) % alignment != 0)
        {
            throwImageMessage(eImageMessage::eIM_MisalignedPlane, place, i, getElementTypeName(geometry.getBufferType()),
                              alignment);
        }
    }
}
} // namespace

boost::shared_ptr<BaseImage> createImage(const BaseImageGeometry& geometry)
{
    const SourcePlace place{
        "boost::shared_ptr<kovis::image::BaseImage> kovis::image::createImage(const kovis::image::BaseImageGeometry&)", g_file,
        __LINE__};
    const detail::ImageSizes sizes = detail::getImageSizes(geometry, place);
    try
    {
        return boost::make_shared<HostImage>(geometry, makePlanes(sizes));
    }
    catch (const BaseException&)
    {
        throw;
    }
    catch (const std::exception&) // bad_alloc, or the length_error of a vector that can never be had
    {
        throwImageMessage(eImageMessage::eIM_NoMemory, place, sizes.m_nbBytes, describe(geometry));
    }
}

boost::shared_ptr<BaseImage> createImage2d(unsigned long sizeX, unsigned long sizeY, const eColorGeometryType& colorGeometryType,
                                           const eImageBufferType& bufferType)
{
    ColorGeometry color;
    color.init(colorGeometryType);
    return createImage(makeGeometry2d(sizeX, sizeY, color, bufferType));
}

boost::shared_ptr<BaseImage> createImageUser2d(unsigned long sizeX, unsigned long sizeY, unsigned long nbChannels,
                                               const eImageBufferType& bufferType)
{
    ColorGeometry color;
    color.initUser(nbChannels);
    return createImage(makeGeometry2d(sizeX, sizeY, color, bufferType));
}

boost::shared_ptr<BaseImage> wrapImage(const BaseImageGeometry& geometry, const std::vector<void*>& planes,
                                       const boost::shared_ptr<const void>& owner, std::size_t nbRoom)
{
    const SourcePlace place{
        "boost::shared_ptr<kovis::image::BaseImage> kovis::image::wrapImage(const kovis::image::BaseImageGeometry&, "
        "const std::vector<void*>&, const boost::shared_ptr<const void>&, std::size_t)",
        g_file, __LINE__};
    const detail::ImageSizes sizes = detail::getImageSizes(geometry, place);
    if (planes.size() != sizes.m_nbPlanes)
    {
        throwImageMessage(eImageMessage::eIM_NbPlanes, place, planes.size(), sizes.m_nbPlanes);
    }
    checkPlanes(geometry, planes, place);
    if (nbRoom > static_cast<std::size_t>(PTRDIFF_MAX) / getElementSize(geometry.getBufferType()) - sizes.m_nbPlaneElements)
    {
        throwImageMessage(eImageMessage::eIM_NbRoom, place, nbRoom, sizes.m_nbPlaneElements);
    }

    std::vector<ImagePlane> imagePlanes(planes.size());
    for (std::size_t i = 0; i < planes.size(); ++i)
    {
        imagePlanes[i].m_owner = owner;
        imagePlanes[i].m_pData = planes[i];
        imagePlanes[i].m_nbRoom = nbRoom;
    }
    return boost::make_shared<HostImage>(geometry, std::move(imagePlanes));
}

void* detail::getPlaneData(const BaseImage& image, const eImageBufferType& elementType, unsigned long c, unsigned long z,
                           unsigned long t)
{
    const SourcePlace place{
        "void* kovis::image::detail::getPlaneData(const kovis::image::BaseImage&, const kovis::image::eImageBufferType&, "
        "unsigned long, unsigned long, unsigned long)",
        g_file, __LINE__};
    const HostImage& hostImage = getHostImage(image, place);
    if (getStorageType(image.getBufferType()) != getStorageType(elementType))
    {
        throwImageMessage(eImageMessage::eIM_ElementType, place, getFormatedName(image, eFT_Short),
                          getElementTypeName(image.getBufferType()), getElementTypeName(elementType));
    }
    const ImagePlane& plane = hostImage.getPlane(c, z, t);
    if (plane.m_pMemory != nullptr)
    {
        plane.m_pMemory->prepareAll();
    }
    return plane.m_pData;
}

void setMemoryReserve(std::size_t bytes)
{
    detail::MemoryReserve::getInstance().setLimit(bytes);
}

std::size_t getMemoryReserve()
{
    return detail::MemoryReserve::getInstance().getLimit();
}
} // namespace kovis::image
