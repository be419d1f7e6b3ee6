#pragma once

#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/Kernel/hue.h"

// Included inside a target region, after a register header.

namespace kovis::imaproc::color::kernel
{
/// Planes H (degrees, 0 to 360), S (chroma over value) and V (the greatest channel, in the units of R, G, B).
template <class Register>
struct HSV
{
    using Float = typename Register::Float;

    static constexpr unsigned int s_saturationPlane = 1;
    static constexpr unsigned int s_brightnessPlane = 2;

    static KOVIS_SIMD_INLINE void describe(Float mx, Float, Float delta, Float& value, Float& saturation)
    {
        value = mx;
        saturation = guardedRatio<Register>(delta, mx);
    }

    /// The chroma, and what every part is raised by.
    static KOVIS_SIMD_INLINE void chroma(Float value, Float saturation, Float& chroma, Float& m)
    {
        chroma = Register::mul(saturation, value);
        m = Register::sub(value, chroma);
    }
};
} // namespace kovis::imaproc::color::kernel
