#pragma once

#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/Kernel/hue.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/Kernel/storePixels.h"

// Included inside a target region, after a register header.

namespace kovis::imaproc::color::kernel
{
/// Planes H (degrees, any value), S and V to planes R, G, B in the units of V. Works in whole blocks up to the block's end past
/// count.
template <class Register, class Tin, class Tout>
void fromHSVToRGBConvert(unsigned long count, const Tin** inPlanes, Tout** outPlanes)
{
    using Float = typename Register::Float;
    using Block = typename Register::Block;
    const typename Register::Limits limits = Register::template limits<Tout>();
    for (unsigned long i = 0; i < count; i += Register::s_blockLength)
    {
        const Block hue = Register::load(inPlanes[0] + i);
        const Block saturation = Register::load(inPlanes[1] + i);
        const Block value = Register::load(inPlanes[2] + i);
        Block red;
        Block green;
        Block blue;
        KOVIS_UNROLL
        for (unsigned long k = 0; k < Register::s_nbRegisters; ++k)
        {
            const Float v = value.m_register[k];
            const Float chroma = Register::mul(saturation.m_register[k], v);
            const Float m = Register::sub(v, chroma);
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

#define KOVIS_INSTANTIATE_FROM_HSV_TO_RGB_CONVERT(REGISTER, TIN, TOUT)                                                           \
    template void fromHSVToRGBConvert<REGISTER, TIN, TOUT>(unsigned long, const TIN**, TOUT**);
