#include "KOVIS/KOVISImage/CudaImage.h"

#include "KOVIS/KOVISImage/GpuScope.h"
#include "KOVIS/KOVISImage/ImageSizes.h"
#include "KOVIS/KOVISImage/KOVISImageLogMessages.h"

#include <boost/make_shared.hpp>

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

void** CudaImage::getPlaneTable() const
{
    const std::lock_guard lock(m_tableMutex);
    if (!m_table)
    {
        const detail::GpuScope scope({"void** kovis::image::CudaImage::getPlaneTable() const", g_file, __LINE__});
        const auto table = boost::make_shared<gpu::DeviceMemory>();
        const std::size_t nbBytes = m_planes.size() * sizeof(void*);
        scope.check(table->allocate(nbBytes), "memory for the addresses of planes");
        scope.check(gpu::CudaRuntime::getInstance().copyToDevice(table->getData(), m_planes.data(), nbBytes),
                    "to take the addresses of planes");
        m_table = table;
    }
    return static_cast<void**>(m_table->getData());
}
} // namespace kovis::image
