#include "KOVIS/KOVISImage/HostImage.h"

#include "KOVIS/KOVISImage/ImageSizes.h"
#include "KOVIS/KOVISImage/KOVISImageLogMessages.h"
#include "KOVIS/KOVISImage/PlaneMemory.h"

#include <utility>

namespace kovis::image
{
namespace
{
void checkIndex(const char* name, unsigned long index, unsigned long size)
{
    if (index >= size)
    {
        throwImageMessage(eImageMessage::eIM_IndexOutOfRange,
                          {"const kovis::image::ImagePlane& kovis::image::HostImage::getPlane(unsigned long, unsigned long, "
                           "unsigned long) const",
                           "KOVIS/KOVISImage/HostImage.cpp", __LINE__},
                          name, index, size);
    }
}
} // namespace

HostImage::HostImage(const BaseImageGeometry& geometry, std::vector<ImagePlane> planes)
    : BaseImage(geometry), m_planes(std::move(planes))
{
    const SourcePlace place{"kovis::image::HostImage::HostImage(const kovis::image::BaseImageGeometry&, "
                            "std::vector<kovis::image::ImagePlane>)",
                            "KOVIS/KOVISImage/HostImage.cpp", __LINE__};
    const std::size_t nbPlanes = detail::getImageSizes(geometry, place).m_nbPlanes;
    if (m_planes.size() != nbPlanes)
    {
        throwImageMessage(eImageMessage::eIM_NbPlanes, place, m_planes.size(), nbPlanes);
    }
}

HostImage::~HostImage() = default;

bool HostImage::isGpuImage() const
{
    return false;
}

const ImagePlane& HostImage::getPlane(unsigned long c, unsigned long z, unsigned long t) const
{
    checkIndex("channel", c, getSizeC());
    checkIndex("slice", z, getSizeZ());
    checkIndex("time step", t, getSizeT());
    return m_planes[(t * getSizeZ() + z) * getSizeC() + c];
}

void HostImage::prepareElements(unsigned long c, unsigned long z, unsigned long t, std::size_t begin, std::size_t end) const
{
    const ImagePlane& plane = getPlane(c, z, t);
    if (plane.m_pMemory != nullptr)
    {
        // Beyond the memory's end there is nothing to prepare, which also keeps the products small.
        const std::size_t nbElements = getSizeX() * getSizeY() + plane.m_nbRoom;
        const std::size_t elementSize = getElementSize(getBufferType());
        plane.m_pMemory->prepare((begin < nbElements ? begin : nbElements) * elementSize,
                                 (end < nbElements ? end : nbElements) * elementSize);
    }
}
} // namespace kovis::image
