#pragma once

#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/Kernel/lab.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/Kernel/storePixels.h"

// Included inside a target region, after a register header.

namespace kovis::imaproc::color::kernel
{
/// One XYZ channel: the cube of f above the threshold, else a line of value, times the channel's white.
template <class Register>
KOVIS_SIMD_INLINE typename Register::Float labInverse(typename Register::Float f, typename Register::Float value, float white)
{
    using Float = typename Register::Float;
    const Float cube = Register::mul(Register::mul(f, f), f);
    const Float line = Register::mul(Register::sub(value, Register::broadcast(lab::g_offset)), Register::broadcast(lab::g_slope));
    const Float ratio = Register::select(Register::greater(f, Register::broadcast(lab::g_inverseThreshold)), cube, line);
    return Register::mul(ratio, Register::broadcast(white));
}

/// Planes L (0 to 100), a, b to planes X, Y, Z (0 to 100). Works in whole blocks up to the block's end past count. Planes of the
/// two sides are not the same: a plane is read after the one of its index is written.
template <class Register, class Tin, class Tout>
void fromLabToXYZConvert(unsigned long count, const Tin** inPlanes, Tout** outPlanes)
{
    using Float = typename Register::Float;
    using Block = typename Register::Block;
    const typename Register::Limits limits = Register::template limits<Tout>();
    for (unsigned long i = 0; i < count; i += Register::s_blockLength)
    {
        Block fy = Register::load(inPlanes[0] + i);
        Block result;
        KOVIS_UNROLL
        for (unsigned long k = 0; k < Register::s_nbRegisters; ++k)
        {
            const Float f =
                Register::div(Register::add(fy.m_register[k], Register::broadcast(16.0F)), Register::broadcast(116.0F));
            fy.m_register[k] = f;
            result.m_register[k] = labInverse<Register>(f, f, lab::g_whiteY);
        }
        StorePixels<Register, Tout>::run(outPlanes[1] + i, result, limits);

        // The lines of X and Z take the raw channel, not f: meant so, in every form.
        const Block a = Register::load(inPlanes[1] + i);
        KOVIS_UNROLL
        for (unsigned long k = 0; k < Register::s_nbRegisters; ++k)
        {
            const Float raw = a.m_register[k];
            const Float fx = Register::add(Register::div(raw, Register::broadcast(500.0F)), fy.m_register[k]);
            result.m_register[k] = labInverse<Register>(fx, raw, lab::g_whiteX);
        }
        StorePixels<Register, Tout>::run(outPlanes[0] + i, result, limits);

        const Block b = Register::load(inPlanes[2] + i);
        KOVIS_UNROLL
        for (unsigned long k = 0; k < Register::s_nbRegisters; ++k)
        {
            const Float raw = b.m_register[k];
            const Float fz = Register::sub(fy.m_register[k], Register::div(raw, Register::broadcast(200.0F)));
            result.m_register[k] = labInverse<Register>(fz, raw, lab::g_whiteZ);
        }
        StorePixels<Register, Tout>::run(outPlanes[2] + i, result, limits);
    }
}
} // namespace kovis::imaproc::color::kernel

#define KOVIS_INSTANTIATE_FROM_LAB_TO_XYZ_CONVERT(REGISTER, TIN, TOUT)                                                           \
    template void fromLabToXYZConvert<REGISTER, TIN, TOUT>(unsigned long, const TIN**, TOUT**);
