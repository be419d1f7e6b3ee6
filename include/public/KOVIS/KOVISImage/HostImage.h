#pragma once

#include "KOVIS/KOVISImage/BaseImage.h"
#include "KOVIS/KOVISImage/KOVISImageExport.h"

#include <boost/shared_ptr.hpp>

#include <cstddef>
#include <vector>

namespace kovis::image
{
namespace detail
{
class PlaneMemory;
}

/// One plane: a dense run of sizeX * sizeY elements of one channel at one Z and T, row after row.
struct ImagePlane
{
    boost::shared_ptr<const void> m_owner; ///< keeps the memory alive
    void* m_pData = nullptr;               ///< first element; nobody writes through it for an image that is const
    std::size_t m_nbRoom = 0;              ///< elements past the plane's end that may be read and written: whole blocks need 64
    detail::PlaneMemory* m_pMemory = nullptr; ///< for memory that is zeroed when first used; null for wrapped memory
};

/// An image in host memory. Views share the planes, and outlive the image that they were made from.
class KOVISIMAGE_EXPORT HostImage : public BaseImage
{
public:
    /// The planes in the order channel fastest, then Z, then T. Made by the functions of ImageFactory.h and SubImageExtractor.h.
    /// Throws KOVISImageException for a number of planes that is not the geometry's, and for a geometry that createImage refuses.
    HostImage(const BaseImageGeometry& geometry, std::vector<ImagePlane> planes);
    ~HostImage() override;

    bool isGpuImage() const override;

    /// Throws KOVISImageException for an index out of range.
    const ImagePlane& getPlane(unsigned long c, unsigned long z, unsigned long t) const;

    /// Makes sure that the elements [begin, end) of a plane hold what was written to them or else zeros. Every reader and writer
    /// of fresh memory calls it first; safe from several threads at once.
    void prepareElements(unsigned long c, unsigned long z, unsigned long t, std::size_t begin, std::size_t end) const;

private:
    std::vector<ImagePlane> m_planes;
};
} // namespace kovis::image
