#pragma once

#include "KOVIS/KOVISHardware/LauncherInfo.h"
#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/Gpu/saturate.h"

// What one thread of the GPU append does, and the grid that it stands in: one text for host and device.

namespace kovis::imaproc::color::gpu
{
/// A place or a size in a grid of threads.
struct GridIndex
{
    unsigned int m_x = 0;
    unsigned int m_y = 0;
    unsigned int m_z = 0;
};

struct AppendGrid
{
    GridIndex m_grid;  ///< in blocks
    GridIndex m_block; ///< in threads
};

// What does not fit the 32 bits of a grid's sizes becomes the greatest number, which no device takes, instead of a smaller grid
// that would leave pixels out.
constexpr unsigned int g_noGridSize = 0xFFFFFFFFU;

inline unsigned int toGridSize(unsigned long size)
{
    return size > g_noGridSize ? g_noGridSize : static_cast<unsigned int>(size);
}

/// The blocks of that side that cover so many pixels: the quotient, rounded up.
inline unsigned int toNbBlocks(unsigned long nbPixels, unsigned long side)
{
    return toGridSize(nbPixels / side + (nbPixels % side != 0 ? 1 : 0));
}

/// The planes of an image. A size of 0 makes it 0, however great the others are.
inline unsigned int toNbPlanes(unsigned long sizeZ, unsigned long sizeC, unsigned long sizeT)
{
    if (sizeZ == 0 || sizeC == 0 || sizeT == 0)
    {
        return 0;
    }
    constexpr unsigned long end = ~0UL;
    return sizeZ > end / sizeC || sizeZ * sizeC > end / sizeT ? g_noGridSize : toGridSize(sizeZ * sizeC * sizeT);
}

/// Square blocks over the plane, and a layer of them for each plane of the image. The side of a block must not be 0.
inline AppendGrid getAppendGrid(const kovis::gpu::LauncherInfo& info)
{
    const unsigned long side = static_cast<unsigned int>(info.m_blockSize2d) & 0xFFFFU;
    AppendGrid grid;
    grid.m_grid.m_x = toNbBlocks(info.m_sizeX, side);
    grid.m_grid.m_y = toNbBlocks(info.m_sizeY, side);
    grid.m_grid.m_z = toNbPlanes(info.m_sizeZ, info.m_sizeC, info.m_sizeT);
    grid.m_block.m_x = static_cast<unsigned int>(side);
    grid.m_block.m_y = static_cast<unsigned int>(side);
    grid.m_block.m_z = 1;
    return grid;
}

/// One pixel of one plane: `in1`, `in2` and `out` hold a plane pointer per channel. Threads outside the image do nothing, those
/// of further slices and time steps neither: only channels are indexed.
template <class T1, class T2, class Tout>
KOVIS_HOST_DEVICE inline void appendColorChannelThread(const GridIndex& block, const GridIndex& blockSize,
                                                       const GridIndex& thread, const kovis::gpu::LauncherInfo& info,
                                                       unsigned long sizeC1, T1 const* const* in1, T2 const* const* in2,
                                                       Tout* const* out)
{
    // 32 bits each, and only then wide.
    const unsigned long x = block.m_x * blockSize.m_x + thread.m_x;
    const unsigned long y = block.m_y * blockSize.m_y + thread.m_y;
    const unsigned long c = block.m_z * blockSize.m_z + thread.m_z;
    if (x >= info.m_sizeX || y >= info.m_sizeY || c >= info.m_sizeC)
    {
        return;
    }
    const unsigned long index = y * info.m_sizeX + x;
    using V = CommonType<T1, T2>;
    const V value = c < sizeC1 ? static_cast<V>(in1[c][index]) : static_cast<V>(in2[c - sizeC1][index]);
    out[c][index] = saturate<Tout>(value);
}
} // namespace kovis::imaproc::color::gpu
