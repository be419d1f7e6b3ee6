#pragma once

#include "ColorTestImages.h"

#include "KOVIS/KOVISImage/ImageFactory.h"
#include "support/ChainModel.h"
#include "support/GuardedPlane.h"

#include <boost/make_shared.hpp>
#include <boost/shared_ptr.hpp>

#include <algorithm>
#include <vector>

// Images of any space, User included, in memory of the system's own or on planes without room.

namespace kovis::test
{
inline image::ColorGeometry makeColor(const ModelSpace& space)
{
    image::ColorGeometry color;
    if (space.m_geometry == image::eCGT_User)
    {
        color.initUser(space.m_sizeC);
    }
    else
    {
        color.init(space.m_geometry);
    }
    return color;
}

/// An image on planes of its own that end where readable memory ends, with no room past them.
template <class T>
ImagePtr wrapGuarded(const image::HomogeneousImageGeometry& geometry)
{
    using Guarded = std::vector<boost::shared_ptr<GuardedPlane<T>>>;
    const auto owner = boost::make_shared<Guarded>();
    std::vector<void*> addresses;
    for (unsigned long c = 0; c < geometry.getSizeC(); ++c)
    {
        owner->push_back(boost::make_shared<GuardedPlane<T>>(geometry.getSizeX() * geometry.getSizeY()));
        addresses.push_back(owner->back()->data());
    }
    return image::wrapImage(geometry, addresses, owner);
}

template <class T>
ImagePtr makeSpaceImage(unsigned long sizeX, unsigned long sizeY, const ModelSpace& space, bool bWrapped)
{
    image::HomogeneousImageGeometry geometry;
    geometry.init(image::VolumeGeometry(), makeColor(space), image::TemporalGeometry(), sizeX, sizeY,
                  image::BufferTypeOf<T>::g_value);
    return bWrapped ? wrapGuarded<T>(geometry) : image::createImage(geometry);
}

template <class T>
ImagePtr makeSpaceImage(unsigned long sizeX, unsigned long sizeY, const ModelSpace& space, bool bWrapped,
                        const ModelPlanes<T>& samples)
{
    const ImagePtr made = makeSpaceImage<T>(sizeX, sizeY, space, bWrapped);
    for (unsigned int c = 0; c < space.m_sizeC; ++c)
    {
        std::copy(samples[c].begin(), samples[c].end(), image::planeData<T>(made, c));
    }
    return made;
}
} // namespace kovis::test
