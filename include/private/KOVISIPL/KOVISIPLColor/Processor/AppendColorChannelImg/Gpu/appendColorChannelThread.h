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

/// A size of a grid in the 32 bits that there are. What does not fit becomes the greatest number, which no device takes, instead
/// of a smaller grid that would leave pixels out.
inline unsigned int toGridSize(unsigned long size)
{
    return size > 0xFFFFFFFFUL ? 0xFFFFFFFFU : static_cast<unsigned int>(size);
}

/// Square blocks over the plane, and a layer of them for each plane of the image. The side of a block must not be 0.
inline AppendGrid getAppendGrid(const kovis::gpu::LauncherInfo& info)
{
    const unsigned long side = static_cast<unsigned int>(info.m_blockSize2d) & 0xFFFFU;
    AppendGrid grid;
    grid.m_grid.m_x = toGridSize((info.m_sizeX + side - 1) / side);
    grid.m_grid.m_y = toGridSize((info.m_sizeY + side - 1) / side);
    grid.m_grid.m_z = toGridSize(info.m_sizeZ * info.m_sizeC * info.m_sizeT);
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
