#pragma once

#include "KOVISIPL/KOVISIPLColor/Processor/Kernel/roundHalfAway.h"

// Included inside a target region, after a register header.

namespace kovis::imaproc::color::kernel
{
/// A block of results into an integer plane: rounded half away from zero, the half added in float, and saturated.
template <class Register, class Tout>
struct StorePixels
{
    static KOVIS_SIMD_INLINE void run(Tout* to, const typename Register::Block& block, const typename Register::Limits& limits)
    {
        Register::storeTruncated(to, roundHalfAway<Register>(block), limits);
    }
};

/// A block of results into a float plane: as they are.
template <class Register>
struct StorePixels<Register, float>
{
    static KOVIS_SIMD_INLINE void run(float* to, const typename Register::Block& block, const typename Register::Limits&)
    {
        Register::store(to, block);
    }
};
} // namespace kovis::imaproc::color::kernel
