#pragma once

#include "KOVIS/KOVISImage/ImageGeometry.h"
#include "KOVIS/KOVISUtil/ThrowMessage.h"

#include <cstddef>

namespace kovis::image::detail
{
/// Elements past a plane's end that whole blocks of every vector form may touch.
constexpr std::size_t g_nbRoomElements = 64;
/// Elements of the blocks that strips are made of.
constexpr unsigned long g_nbBlockElements = 64;

/// The number of elements rounded up to whole blocks.
constexpr unsigned long roundUpToBlocks(unsigned long nbElements)
{
    return (nbElements + g_nbBlockElements - 1) / g_nbBlockElements * g_nbBlockElements;
}

/// The products of an image's sizes; none of them overflows.
struct ImageSizes
{
    std::size_t m_nbPlanes;        ///< channels * slices * time steps
    std::size_t m_nbPlaneElements; ///< elements of one plane, without room
    std::size_t m_nbPlaneBytes;    ///< bytes of one plane, with room
    std::size_t m_nbBytes;         ///< bytes of all planes, with room and what the system needs for them
};

/// Throws KOVISImageException, from `place`, for a geometry that cannot be an image.
ImageSizes getImageSizes(const BaseImageGeometry& geometry, const SourcePlace& place);
} // namespace kovis::image::detail
