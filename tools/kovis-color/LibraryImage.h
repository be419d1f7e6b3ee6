#pragma once

#include "Picture.h"

#include "KOVIS/KOVISImage/BaseImage.h"
#include "KOVIS/KOVISImage/eColorGeometryType.h"
#include "KOVIS/KOVISImage/eImageBufferType.h"

#include <boost/shared_ptr.hpp>

namespace kovis::tool
{
/// The library's buffer type of an element type.
image::eImageBufferType toBufferType(ElementType type);

/// The element type of a buffer type from 1 to 7.
ElementType toElementType(image::eImageBufferType type);

/// The picture as an image of that space, pages as Z, without a copy: the image keeps the picture alive.
boost::shared_ptr<const image::BaseImage> wrapPicture(const boost::shared_ptr<Picture>& picture, image::eColorGeometryType space);

/// A new image of the size and pages of `shape`, with its own space, channels and element type.
boost::shared_ptr<image::BaseImage> createResult(const PictureShape& shape, image::eColorGeometryType space, std::size_t channels,
                                                 ElementType type);

/// The image to be written, valid as long as the image is.
PictureView viewOf(const image::BaseImage& image);
} // namespace kovis::tool
