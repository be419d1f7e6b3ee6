#pragma once

#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/Kernel/storePixels.h"

// Included inside a target region, after a register header. What the spaces with a hue share.

namespace kovis::imaproc::color::kernel
{
/// Clamped to the closed range 0 to 360; a NaN becomes 0.
template <class Register>
KOVIS_SIMD_INLINE typename Register::Float clampHue(typename Register::Float hue)
{
    const typename Register::Float turn = Register::broadcast(360.0F);
    hue = Register::max(hue, Register::broadcast(0.0F));
    return Register::select(Register::greaterEqual(hue, turn), turn, hue);
}

/// Hue in degrees, 0 to 360, of a pixel with the greatest channel mx and delta = mx - least channel. Blue wins a tie over green,
/// and green over red. A pixel without a hue gives 0.
template <class Register>
KOVIS_SIMD_INLINE typename Register::Float hueFromRGB(typename Register::Float r, typename Register::Float g,
                                                      typename Register::Float b, typename Register::Float mx,
                                                      typename Register::Float delta)
{
    using Float = typename Register::Float;
    const Float zero = Register::broadcast(0.0F);
    const Float turn = Register::broadcast(360.0F);
    const typename Register::Mask achromatic = Register::equal(delta, zero);
    const Float d = Register::select(achromatic, Register::broadcast(1.0F), delta);

    Float e = Register::div(Register::sub(g, b), d);
    e = Register::select(Register::equal(g, mx), Register::add(Register::div(Register::sub(b, r), d), Register::broadcast(2.0F)),
                         e);
    e = Register::select(Register::equal(b, mx), Register::add(Register::div(Register::sub(r, g), d), Register::broadcast(4.0F)),
                         e);
    e = Register::select(achromatic, zero, e);

    const Float h60 = Register::mul(e, Register::broadcast(60.0F));
    const Float q = Register::div(h60, turn);
    return clampHue<Register>(Register::negMulAdd(Register::floor(q), turn, h60));
}

/// The parts of red, green and blue that a hue in degrees gives for a chroma, before the offset. Any hue is accepted.
template <class Register>
KOVIS_SIMD_INLINE void partsFromHue(typename Register::Float h, typename Register::Float chroma, typename Register::Float& r,
                                    typename Register::Float& g, typename Register::Float& b)
{
    using Float = typename Register::Float;
    const Float zero = Register::broadcast(0.0F);
    const Float one = Register::broadcast(1.0F);
    const Float two = Register::broadcast(2.0F);
    const Float turn = Register::broadcast(360.0F);

    const Float h1 = clampHue<Register>(Register::negMulAdd(Register::floor(Register::div(h, turn)), turn, h));
    const Float hs = Register::div(h1, Register::broadcast(60.0F));
    Float w = Register::negMulAdd(two, Register::floor(Register::mul(hs, Register::broadcast(0.5F))), hs);
    w = Register::max(w, zero);
    w = Register::select(Register::greaterEqual(w, two), two, w);
    const Float x = Register::mul(Register::sub(one, Register::abs(Register::sub(w, one))), chroma);

    // Sectors are closed at their upper end.
    const typename Register::Mask to1 = Register::lessEqual(hs, one);
    const typename Register::Mask to2 = Register::lessEqual(hs, two);
    const typename Register::Mask to3 = Register::lessEqual(hs, Register::broadcast(3.0F));
    const typename Register::Mask to4 = Register::lessEqual(hs, Register::broadcast(4.0F));
    const typename Register::Mask to5 = Register::lessEqual(hs, Register::broadcast(5.0F));
    r = Register::select(to1, chroma, Register::select(to2, x, Register::select(to4, zero, Register::select(to5, x, chroma))));
    g = Register::select(to1, x, Register::select(to3, chroma, Register::select(to4, x, zero)));
    b = Register::select(to2, zero, Register::select(to3, x, Register::select(to5, chroma, x)));
}

/// delta over a divisor, and 0 where that is exactly 0.
template <class Register>
KOVIS_SIMD_INLINE typename Register::Float guardedRatio(typename Register::Float delta, typename Register::Float divisor)
{
    const typename Register::Float zero = Register::broadcast(0.0F);
    const typename Register::Mask none = Register::equal(divisor, zero);
    return Register::select(none, zero, Register::div(delta, Register::select(none, Register::broadcast(1.0F), divisor)));
}

/// Planes R, G, B to a hue plane, one of brightness and one of saturation, which Space places and works out. All planes of a
/// block are read before the first store.
template <class Register, class Space, class Tin, class Tout>
KOVIS_SIMD_INLINE void convertToHue(unsigned long count, const Tin** inPlanes, Tout** outPlanes)
{
    using Float = typename Register::Float;
    using Block = typename Register::Block;
    const typename Register::Limits limits = Register::template limits<Tout>();
    for (unsigned long i = 0; i < count; i += Register::s_blockLength)
    {
        const Block red = Register::load(inPlanes[0] + i);
        const Block green = Register::load(inPlanes[1] + i);
        const Block blue = Register::load(inPlanes[2] + i);
        Block hue;
        Block brightness;
        Block saturation;
        KOVIS_UNROLL
        for (unsigned long k = 0; k < Register::s_nbRegisters; ++k)
        {
            const Float r = red.m_register[k];
            const Float g = green.m_register[k];
            const Float b = blue.m_register[k];
            const Float mx = Register::max(Register::max(r, g), b);
            const Float mn = Register::min(Register::min(r, g), b);
            const Float delta = Register::sub(mx, mn);
            hue.m_register[k] = hueFromRGB<Register>(r, g, b, mx, delta);
            Space::describe(mx, mn, delta, brightness.m_register[k], saturation.m_register[k]);
        }
        StorePixels<Register, Tout>::run(outPlanes[0] + i, hue, limits);
        StorePixels<Register, Tout>::run(outPlanes[Space::s_brightnessPlane] + i, brightness, limits);
        StorePixels<Register, Tout>::run(outPlanes[Space::s_saturationPlane] + i, saturation, limits);
    }
}

/// A hue plane (degrees, any value), one of brightness and one of saturation to planes R, G, B in the units of the brightness.
template <class Register, class Space, class Tin, class Tout>
KOVIS_SIMD_INLINE void convertFromHue(unsigned long count, const Tin** inPlanes, Tout** outPlanes)
{
    using Float = typename Register::Float;
    using Block = typename Register::Block;
    const typename Register::Limits limits = Register::template limits<Tout>();
    for (unsigned long i = 0; i < count; i += Register::s_blockLength)
    {
        const Block hue = Register::load(inPlanes[0] + i);
        const Block brightness = Register::load(inPlanes[Space::s_brightnessPlane] + i);
        const Block saturation = Register::load(inPlanes[Space::s_saturationPlane] + i);
        Block red;
        Block green;
        Block blue;
        KOVIS_UNROLL
        for (unsigned long k = 0; k < Register::s_nbRegisters; ++k)
        {
            Float chroma;
            Float m;
            Space::chroma(brightness.m_register[k], saturation.m_register[k], chroma, m);
            Float r;
            Float g;
            Float b;
            partsFromHue<Register>(hue.m_register[k], chroma, r, g, b);
            red.m_register[k] = Register::add(r, m);
            green.m_register[k] = Register::add(g, m);
            blue.m_register[k] = Register::add(b, m);
        }
        StorePixels<Register, Tout>::run(outPlanes[0] + i, red, limits);
        StorePixels<Register, Tout>::run(outPlanes[1] + i, green, limits);
        StorePixels<Register, Tout>::run(outPlanes[2] + i, blue, limits);
    }
}
} // namespace kovis::imaproc::color::kernel
