#include "KOVIS/KOVISImage/ImageGeometry.h"

namespace kovis::image
{
void ColorGeometry::init(const eColorGeometryType& type)
{
    m_type = toColorGeometryType(type);
    m_sizeC = getNbChannels(m_type);
}

void ColorGeometry::initUser(unsigned long nbChannels)
{
    m_type = eCGT_User;
    m_sizeC = nbChannels;
}

ColorGeometry geometryGrey()
{
    return ColorGeometry();
}

void HomogeneousImageGeometry::init(const VolumeGeometry& volume, const ColorGeometry& color, const TemporalGeometry& temporal,
                                    unsigned long sizeX, unsigned long sizeY, const eImageBufferType& bufferType)
{
    m_volume = volume;
    m_color = color;
    m_temporal = temporal;
    m_sizeX = sizeX;
    m_sizeY = sizeY;
    m_bufferType = bufferType;
}
} // namespace kovis::image
