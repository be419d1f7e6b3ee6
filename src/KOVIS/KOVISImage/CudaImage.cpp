#include "KOVIS/KOVISImage/CudaImage.h"

#include "KOVIS/KOVISImage/ImageSizes.h"
#include "KOVIS/KOVISImage/KOVISImageLogMessages.h"

#include <utility>

namespace kovis::image
{
namespace
{
const char* const g_file = "KOVIS/KOVISImage/CudaImage.cpp";

void checkIndex(const char* name, unsigned long index, unsigned long size)
{
    if (index >= size)
    {
        throwImageMessage(
            eImageMessage::eIM_IndexOutOfRange,
            {"void* kovis::image::CudaImage::getPlane(unsigned long, unsigned long, unsigned long) const", g_file, __LINE__},
            name, index, size);
    }
}
} // namespace

CudaImage::CudaImage(const BaseImageGeometry& geometry, std::vector<void*> planes, const boost::shared_ptr<const void>& owner)
    : BaseImage(geometry), m_planes(std::move(planes)), m_owner(owner)
{
    const SourcePlace place{
        "kovis::image::CudaImage::CudaImage(const kovis::image::BaseImageGeometry&, std::vector<void*>, const "
        "boost::shared_ptr<const void>&)",
        g_file, __LINE__};
    const std::size_t nbPlanes = detail::getImageSizes(geometry, place).m_nbPlanes;
    if (m_planes.size() != nbPlanes)
    {
        throwImageMessage(eImageMessage::eIM_NbPlanes, place, m_planes.size(), nbPlanes);
    }
    for (std::size_t i = 0; i < m_planes.size(); ++i)
    {
        if (m_planes[i] == nullptr)
        {
            throwImageMessage(eImageMessage::eIM_NullPlane, place, i);
        }
    }
}

CudaImage::~CudaImage() = default;

bool CudaImage::isGpuImage() const
{
    return true;
}

void* CudaImage::getPlane(unsigned long c, unsigned long z, unsigned long t) const
{
    checkIndex("channel", c, getSizeC());
    checkIndex("slice", z, getSizeZ());
    checkIndex("time step", t, getSizeT());
    return m_planes[(t * getSizeZ() + z) * getSizeC() + c];
}
} // namespace kovis::image
