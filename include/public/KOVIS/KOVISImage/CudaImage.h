#pragma once

#include "KOVIS/KOVISImage/BaseImage.h"
#include "KOVIS/KOVISImage/KOVISImageExport.h"

#include <boost/shared_ptr.hpp>

#include <vector>

namespace kovis::image
{
/// An image whose planes lie in the memory of a GPU: dense runs of sizeX * sizeY elements, row after row, with no row pitch.
/// It shows planes that its maker allocated; nothing here touches the device.
class KOVISIMAGE_EXPORT CudaImage : public BaseImage
{
public:
    /// One device pointer per plane, channel fastest, then Z, then T; `owner` is kept alive as long as the image lives.
    /// Throws KOVISImageException for a wrong number of planes, a null plane, and whatever createImage refuses.
    CudaImage(const BaseImageGeometry& geometry, std::vector<void*> planes, const boost::shared_ptr<const void>& owner);
    ~CudaImage() override;

    bool isGpuImage() const override;

    /// The device pointer of a plane. Throws KOVISImageException for an index out of range.
    void* getPlane(unsigned long c, unsigned long z, unsigned long t) const;

private:
    const std::vector<void*> m_planes;
    const boost::shared_ptr<const void> m_owner;
};
} // namespace kovis::image
