#pragma once

#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/Kernel/hue.h"

// Included inside a target region, after a register header.

namespace kovis::imaproc::color::kernel
{
/// Planes H (degrees, 0 to 360), L (mean of the greatest and the least channel, in the units of R, G, B) and S, whose formula
/// reads L on the scale of 0 to 1 whatever the pixel type: an L above 1 has a negative S.
template <class Register>
struct HLS
{
    using Float = typename Register::Float;

    static constexpr unsigned int s_brightnessPlane = 1;
    static constexpr unsigned int s_saturationPlane = 2;

    /// The guard is exact: next to an L of 0 or 1 the ratio is very large, and nothing limits it.
    static KOVIS_SIMD_INLINE void describe(Float mx, Float mn, Float delta, Float& lightness, Float& saturation)
    {
        lightness = Register::mul(Register::add(mx, mn), Register::broadcast(0.5F));
        saturation = guardedRatio<Register>(delta, greatestChroma(lightness));
    }

    /// The chroma, and what every part is raised by.
    static KOVIS_SIMD_INLINE void chroma(Float lightness, Float saturation, Float& chroma, Float& m)
    {
        chroma = Register::mul(greatestChroma(lightness), saturation);
        m = Register::negMulAdd(chroma, Register::broadcast(0.5F), lightness);
    }

private:
    static KOVIS_SIMD_INLINE Float greatestChroma(Float lightness)
    {
        const Float one = Register::broadcast(1.0F);
        return Register::sub(one, Register::abs(Register::mulSub(lightness, Register::broadcast(2.0F), one)));
    }
};
} // namespace kovis::imaproc::color::kernel
