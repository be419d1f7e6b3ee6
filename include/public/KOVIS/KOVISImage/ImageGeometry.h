#pragma once

#include "KOVIS/KOVISImage/KOVISImageExport.h"
#include "KOVIS/KOVISImage/eColorGeometryType.h"
#include "KOVIS/KOVISImage/eImageBufferType.h"

namespace kovis::image
{
/// The Z dimension of an image, in slices; one slice by default.
class KOVISIMAGE_EXPORT VolumeGeometry
{
public:
    VolumeGeometry() = default;
    explicit VolumeGeometry(unsigned long sizeZ) : m_sizeZ(sizeZ) {}

    unsigned long getSizeZ() const { return m_sizeZ; }

private:
    unsigned long m_sizeZ = 1;
};

/// The time dimension of an image, in steps; one step by default.
class KOVISIMAGE_EXPORT TemporalGeometry
{
public:
    TemporalGeometry() = default;
    explicit TemporalGeometry(unsigned long sizeT) : m_sizeT(sizeT) {}

    unsigned long getSizeT() const { return m_sizeT; }

private:
    unsigned long m_sizeT = 1;
};

/// The colour dimension of an image: its space and number of channels; grey by default.
class KOVISIMAGE_EXPORT ColorGeometry
{
public:
    ColorGeometry() = default;

    /// A standard space with its own number of channels; eCGT_User becomes a user geometry of no channel.
    void init(const eColorGeometryType& type);
    /// eCGT_User with that many channels.
    void initUser(unsigned long nbChannels);

    const eColorGeometryType& getColorGeometryType() const { return m_type; }
    unsigned long getSizeC() const { return m_sizeC; }

private:
    eColorGeometryType m_type = eCGT_Grey;
    unsigned long m_sizeC = 1;
};

/// A colour geometry of eCGT_Grey.
KOVISIMAGE_EXPORT ColorGeometry geometryGrey();

/// What an image reports of its shape. A value type; all sizes in elements.
class KOVISIMAGE_EXPORT BaseImageGeometry
{
public:
    const eImageBufferType& getBufferType() const { return m_bufferType; }
    const VolumeGeometry& getVolumeGeometry() const { return m_volume; }
    const ColorGeometry& getColorGeometry() const { return m_color; }
    const TemporalGeometry& getTemporalGeometry() const { return m_temporal; }

    unsigned long getSizeX() const { return m_sizeX; }
    unsigned long getSizeY() const { return m_sizeY; }
    unsigned long getSizeZ() const { return m_volume.getSizeZ(); }
    unsigned long getSizeC() const { return m_color.getSizeC(); }
    unsigned long getSizeT() const { return m_temporal.getSizeT(); }

protected:
    BaseImageGeometry() = default;

    VolumeGeometry m_volume;
    ColorGeometry m_color;
    TemporalGeometry m_temporal;
    unsigned long m_sizeX = 0;
    unsigned long m_sizeY = 0;
    eImageBufferType m_bufferType = eIBT_None;
};

/// A geometry of one buffer type throughout.
class KOVISIMAGE_EXPORT HomogeneousImageGeometry : public BaseImageGeometry
{
public:
    HomogeneousImageGeometry() = default;

    /// Nothing is checked here: createImage and wrapImage refuse what cannot be an image.
    void init(const VolumeGeometry& volume, const ColorGeometry& color, const TemporalGeometry& temporal, unsigned long sizeX,
              unsigned long sizeY, const eImageBufferType& bufferType);
};
} // namespace kovis::image
