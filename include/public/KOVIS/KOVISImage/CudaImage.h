#pragma once

#include "KOVIS/KOVISImage/BaseImage.h"
#include "KOVIS/KOVISImage/KOVISImageExport.h"

#include <boost/shared_ptr.hpp>

#include <mutex>
#include <vector>

namespace kovis::gpu
{
class DeviceMemory;
}

namespace kovis::image
{
/// An image whose planes lie in the memory of a GPU: dense runs of sizeX * sizeY elements, row after row, with no row pitch. Made
/// by the functions of CudaImageFactory.h, or over planes that a caller allocated on the first usable GPU himself.
class KOVISIMAGE_EXPORT CudaImage : public BaseImage
{
public:
    /// One device pointer per plane, channel fastest, then Z, then T; `owner` is kept alive as long as the image lives. Nothing
    /// here touches the device. Throws KOVISImageException for a wrong number of planes, a null plane, and whatever createImage
    /// refuses.
    CudaImage(const BaseImageGeometry& geometry, std::vector<void*> planes, const boost::shared_ptr<const void>& owner);
    ~CudaImage() override;

    bool isGpuImage() const override;

    /// The device pointer of a plane. Throws KOVISImageException for an index out of range.
    void* getPlane(unsigned long c, unsigned long z, unsigned long t) const;

    /// The device pointers of all planes, in the order of the constructor, as an array that lies in device memory itself: what
    /// kernels get. Made at the first call, alive as long as the image. Throws KOVISImageException where there is no usable GPU,
    /// and for what it refuses, with its reason. Safe from several threads at once.
    void** getPlaneTable() const;

private:
    const std::vector<void*> m_planes;
    const boost::shared_ptr<const void> m_owner;
    mutable std::mutex m_tableMutex;
    mutable boost::shared_ptr<gpu::DeviceMemory> m_table;
};
} // namespace kovis::image
