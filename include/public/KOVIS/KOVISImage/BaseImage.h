#pragma once

#include "KOVIS/KOVISImage/ImageGeometry.h"
#include "KOVIS/KOVISImage/KOVISImageExport.h"

#include <boost/shared_ptr.hpp>

namespace kovis::image
{
/// An image, or a view of a part of one. Its geometry never changes.
class KOVISIMAGE_EXPORT BaseImage
{
public:
    virtual ~BaseImage();
    BaseImage(const BaseImage&) = delete;
    BaseImage& operator=(const BaseImage&) = delete;

    /// Whether the planes lie in the memory of a GPU; then they cannot be read here.
    virtual bool isGpuImage() const = 0;

    const BaseImageGeometry& getGeometry() const { return m_geometry; }
    const eImageBufferType& getBufferType() const { return m_geometry.getBufferType(); }
    const eColorGeometryType& getColorGeometryType() const { return m_geometry.getColorGeometry().getColorGeometryType(); }
    unsigned long getSizeX() const { return m_geometry.getSizeX(); }
    unsigned long getSizeY() const { return m_geometry.getSizeY(); }
    unsigned long getSizeZ() const { return m_geometry.getSizeZ(); }
    unsigned long getSizeC() const { return m_geometry.getSizeC(); }
    unsigned long getSizeT() const { return m_geometry.getSizeT(); }

protected:
    explicit BaseImage(const BaseImageGeometry& geometry) : m_geometry(geometry) {}

private:
    const BaseImageGeometry m_geometry;
};
} // namespace kovis::image
