#pragma once

#include "KOVIS/KOVISImageProcessing/BaseImageAttribute.h"

#include <boost/shared_ptr.hpp>

namespace kovis::imaproc::color
{
/// The image of an attribute, kept alive: the attribute may be set anew meanwhile. Where it holds none, its own getter throws by
/// name.
inline boost::shared_ptr<const image::BaseImage> getHeldImage(const BaseImageAttribute& attribute)
{
    boost::shared_ptr<const image::BaseImage> image;
    while (!(image = attribute.getImagePtr()))
    {
        (void)attribute.getImage();
    }
    return image;
}
} // namespace kovis::imaproc::color
