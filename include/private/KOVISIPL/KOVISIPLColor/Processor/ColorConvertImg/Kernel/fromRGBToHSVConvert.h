#pragma once

#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/Kernel/hue.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/Kernel/storePixels.h"

// Included inside a target region, after a register header.

namespace kovis::imaproc::color::kernel
{
/// Planes R, G, B to planes H (degrees, 0 to 360), S (chroma over value) and V (the greatest channel, in the input's units).
/// Works in whole blocks up to the block's end past count.
template <class Register, class Tin, class Tout>
void fromRGBToHSVConvert(unsigned long count, const Tin** inPlanes, Tout** outPlanes)
{
    using Float = typename Register::Float;
    using Block = typename Register::Block;
    const typename Register::Limits limits = Register::template limits<Tout>();
    const Float zero = Register::broadcast(0.0F);
    const Float one = Register::broadcast(1.0F);
    for (unsigned long i = 0; i < count; i += Register::s_blockLength)
    {
        const Block red = Register::load(inPlanes[0] + i);
        const Block green = Register::load(inPlanes[1] + i);
        const Block blue = Register::load(inPlanes[2] + i);
        Block hue;
        Block saturation;
        Block value;
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
            value.m_register[k] = mx;
            const typename Register::Mask black = Register::equal(mx, zero);
            saturation.m_register[k] = Register::select(black, zero, Register::div(delta, Register::select(black, one, mx)));
        }
        StorePixels<Register, Tout>::run(outPlanes[0] + i, hue, limits);
        StorePixels<Register, Tout>::run(outPlanes[2] + i, value, limits);
        StorePixels<Register, Tout>::run(outPlanes[1] + i, saturation, limits);
    }
}
} // namespace kovis::imaproc::color::kernel

#define KOVIS_INSTANTIATE_FROM_RGB_TO_HSV_CONVERT(REGISTER, TIN, TOUT)                                                           \
    template void fromRGBToHSVConvert<REGISTER, TIN, TOUT>(unsigned long, const TIN**, TOUT**);
