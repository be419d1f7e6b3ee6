#pragma once

#include "KOVIS/KOVISImage/ImageFactory.h"
#include "KOVIS/KOVISImage/KOVISImageLog.h"

#include <gtest/gtest.h>

#include <string>

namespace kovis::test
{
/// A geometry of eCGT_User with all five sizes.
inline image::HomogeneousImageGeometry makeGeometry(unsigned long sizeX, unsigned long sizeY, unsigned long sizeZ,
                                                    unsigned long sizeC, unsigned long sizeT, image::eImageBufferType bufferType)
{
    image::ColorGeometry color;
    color.initUser(sizeC);
    image::HomogeneousImageGeometry geometry;
    geometry.init(image::VolumeGeometry(sizeZ), color, image::TemporalGeometry(sizeT), sizeX, sizeY, bufferType);
    return geometry;
}

/// The message of the KOVISImageException that the call throws; a failure and "" where it throws none.
template <class TCall>
std::string getImageError(const TCall& call)
{
    try
    {
        call();
    }
    catch (const image::KOVISImageException& e)
    {
        return e.what();
    }
    ADD_FAILURE() << "no KOVISImageException was thrown";
    return std::string();
}
} // namespace kovis::test
