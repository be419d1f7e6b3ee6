#pragma once

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
} // namespace kovis::imaproc::color::kernel
