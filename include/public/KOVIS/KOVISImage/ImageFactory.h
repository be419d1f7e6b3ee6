#pragma once

#include "KOVIS/KOVISImage/BaseImage.h"
#include "KOVIS/KOVISImage/ImageStrip.h"
#include "KOVIS/KOVISImage/KOVISImageExport.h"

#include <boost/shared_ptr.hpp>

#include <cstddef>
#include <vector>

namespace kovis::image
{
/// Makes an image in host memory, all zeros. Throws KOVISImageException for a size of zero, a buffer type outside 1 to 11, sizes
/// whose product overflows, and memory that cannot be had.
KOVISIMAGE_EXPORT boost::shared_ptr<BaseImage> createImage(const BaseImageGeometry& geometry);

/// A 2D image of a standard colour space (not eCGT_User), one Z slice and one time step.
KOVISIMAGE_EXPORT boost::shared_ptr<BaseImage> createImage2d(unsigned long sizeX, unsigned long sizeY,
                                                             const eColorGeometryType& colorGeometryType,
                                                             const eImageBufferType& bufferType);

/// A 2D image of eCGT_User with that many channels.
KOVISIMAGE_EXPORT boost::shared_ptr<BaseImage> createImageUser2d(unsigned long sizeX, unsigned long sizeY,
                                                                 unsigned long nbChannels, const eImageBufferType& bufferType);

/// Shows the caller's own planes as an image, without a copy, and keeps `owner` alive as long as the image or a view of it lives.
/// `planes` has one pointer per plane, channel fastest, then Z, then T, each to sizeX * sizeY dense elements, aligned for their
/// type. Nothing outside them is read or written, except for `nbRoom` elements past each plane's end that the caller grants.
/// Throws KOVISImageException for a wrong number of planes, a null or misaligned plane, and whatever else createImage refuses.
KOVISIMAGE_EXPORT boost::shared_ptr<BaseImage> wrapImage(const BaseImageGeometry& geometry, const std::vector<void*>& planes,
                                                         const boost::shared_ptr<const void>& owner, std::size_t nbRoom = 0);

/// A 2D view of all channels at one Z and T. Throws KOVISImageException for an index out of range.
KOVISIMAGE_EXPORT boost::shared_ptr<BaseImage> getSlice2d(const boost::shared_ptr<BaseImage>& image, unsigned long z,
                                                          unsigned long t);
KOVISIMAGE_EXPORT boost::shared_ptr<const BaseImage> getSlice2d(const boost::shared_ptr<const BaseImage>& image, unsigned long z,
                                                                unsigned long t);

namespace detail
{
/// The plane's first element, all of it ready for use. Throws KOVISImageException, in words, for a GPU image, an element type
/// that is not the image's, or an index out of range.
KOVISIMAGE_EXPORT void* getPlaneData(const BaseImage& image, const eImageBufferType& elementType, unsigned long c,
                                     unsigned long z, unsigned long t);
} // namespace detail

/// The elements of one plane, sizeX * sizeY of them, row after row. T is the element type of the image's buffer type, whichever
/// of the buffer types of that storage it is.
template <class T>
T* planeData(BaseImage& image, unsigned long c = 0, unsigned long z = 0, unsigned long t = 0)
{
    return static_cast<T*>(detail::getPlaneData(image, BufferTypeOf<T>::g_value, c, z, t));
}
template <class T>
const T* planeData(const BaseImage& image, unsigned long c = 0, unsigned long z = 0, unsigned long t = 0)
{
    return static_cast<const T*>(detail::getPlaneData(image, BufferTypeOf<T>::g_value, c, z, t));
}
template <class T>
T* planeData(const boost::shared_ptr<BaseImage>& image, unsigned long c = 0, unsigned long z = 0, unsigned long t = 0)
{
    return planeData<T>(*image, c, z, t);
}
template <class T>
const T* planeData(const boost::shared_ptr<const BaseImage>& image, unsigned long c = 0, unsigned long z = 0, unsigned long t = 0)
{
    return planeData<T>(*image, c, z, t);
}

/// A strip of just these rows of a 2D image, for who drives level 3 by hand. Throws KOVISImageException for rows out of range or
/// an image that is not 2D.
KOVISIMAGE_EXPORT boost::shared_ptr<InputImageYStripColor2d> makeInputStrip(const boost::shared_ptr<const BaseImage>& image,
                                                                            unsigned long firstRow, unsigned long nbRows);
KOVISIMAGE_EXPORT boost::shared_ptr<OutputImageYStripColor2d> makeOutputStrip(const boost::shared_ptr<BaseImage>& image,
                                                                              unsigned long firstRow, unsigned long nbRows);

/// Keeps up to that many bytes of the memory of dropped images for the next ones; 256 MiB by default, 0 keeps nothing and gives
/// back what is kept. Safe from any thread, at any time.
KOVISIMAGE_EXPORT void setMemoryReserve(std::size_t bytes);
KOVISIMAGE_EXPORT std::size_t getMemoryReserve();
} // namespace kovis::image
