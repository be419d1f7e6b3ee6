#pragma once

#include <initializer_list>

// What follows from a device's properties, as rules without a device.

namespace kovis::gpu
{
/// Whether device code runs on a device of the compute capability major.minor: code of an architecture (75 is 7.5) runs on
/// devices of the same major number and no lesser minor one, PTX on all from its own number on. An architecture of 0 is none.
constexpr bool isCovered(std::initializer_list<int> architectures, int ptxArchitecture, int major, int minor)
{
    if (ptxArchitecture != 0 && major * 10 + minor >= ptxArchitecture)
    {
        return true;
    }
    for (const int architecture : architectures)
    {
        if (architecture / 10 == major && architecture % 10 <= minor)
        {
            return true;
        }
    }
    return false;
}

/// The side of square blocks that suits a device: the greatest power of two up to 32, the width of a warp, whose blocks are
/// allowed and of which a multiprocessor holds four or more, so that it has work while one of them drains; at least 1.
constexpr int getBlockSide(int maxThreadsPerBlock, int maxThreadsPerMultiProcessor)
{
    int side = 32;
    while (side > 1 && (side * side > maxThreadsPerBlock || 4 * side * side > maxThreadsPerMultiProcessor))
    {
        side /= 2;
    }
    return side;
}
} // namespace kovis::gpu
