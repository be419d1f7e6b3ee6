#pragma once

#include "KOVIS/KOVISImage/ImageFactory.h"

#include <boost/shared_ptr.hpp>

#include <cstring>
#include <vector>

namespace kovis::test
{
using ImagePtr = boost::shared_ptr<image::BaseImage>;
using ConstImagePtr = boost::shared_ptr<const image::BaseImage>;

inline image::HomogeneousImageGeometry makeColorGeometry(unsigned long sizeX, unsigned long sizeY, image::eColorGeometryType type,
                                                         image::eImageBufferType bufferType, unsigned long sizeZ = 1,
                                                         unsigned long sizeT = 1)
{
    image::ColorGeometry color;
    color.init(type);
    image::HomogeneousImageGeometry geometry;
    geometry.init(image::VolumeGeometry(sizeZ), color, image::TemporalGeometry(sizeT), sizeX, sizeY, bufferType);
    return geometry;
}

inline image::HomogeneousImageGeometry makeUserGeometry(unsigned long sizeX, unsigned long sizeY, unsigned long nbChannels,
                                                        image::eImageBufferType bufferType, unsigned long sizeZ = 1,
                                                        unsigned long sizeT = 1)
{
    image::ColorGeometry color;
    color.initUser(nbChannels);
    image::HomogeneousImageGeometry geometry;
    geometry.init(image::VolumeGeometry(sizeZ), color, image::TemporalGeometry(sizeT), sizeX, sizeY, bufferType);
    return geometry;
}

/// An image whose plane c holds value + c at Z and T 0.
template <class T>
ImagePtr makeFilledImage(unsigned long sizeX, unsigned long sizeY, image::eColorGeometryType type, T value)
{
    const ImagePtr made = image::createImage2d(sizeX, sizeY, type, image::BufferTypeOf<T>::g_value);
    for (unsigned long c = 0; c < made->getSizeC(); ++c)
    {
        T* const plane = image::planeData<T>(made, c);
        for (unsigned long i = 0; i < sizeX * sizeY; ++i)
        {
            plane[i] = static_cast<T>(value + static_cast<T>(c));
        }
    }
    return made;
}

/// The exact elements of all planes, Z and T 0.
template <class T>
std::vector<std::vector<T>> getPlanes(const image::BaseImage& source)
{
    std::vector<std::vector<T>> planes;
    for (unsigned long c = 0; c < source.getSizeC(); ++c)
    {
        const T* const plane = image::planeData<T>(source, c);
        planes.emplace_back(plane, plane + source.getSizeX() * source.getSizeY());
    }
    return planes;
}
} // namespace kovis::test
