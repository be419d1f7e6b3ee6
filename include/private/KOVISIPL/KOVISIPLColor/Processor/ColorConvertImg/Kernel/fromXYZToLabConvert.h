#pragma once

#include "KOVIS/KOVISSimd/PowNoCheckReg.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/Kernel/lab.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/Kernel/storePixels.h"

// Included inside a target region, after a register header.

namespace kovis::imaproc::color::kernel
{
/// f of a block of one XYZ channel over its white: the cube root above the threshold, else a line, for negative values too. A NaN
/// takes the line.
template <class Register, class Tin>
KOVIS_SIMD_INLINE typename Register::Block labCurve(const Tin* plane, float white,
                                                    const typename simd::Power<Register>::Exponent& third)
{
    using Float = typename Register::Float;
    typename Register::Block block = Register::load(plane);
    typename Register::Block root;
    KOVIS_UNROLL
    for (unsigned long k = 0; k < Register::s_nbRegisters; ++k)
    {
        block.m_register[k] = Register::div(block.m_register[k], Register::broadcast(white));
        root.m_register[k] = Register::max(block.m_register[k], Register::broadcast(0.0F));
    }
    simd::Power<Register>::run(root.m_register, third, root.m_register);
    KOVIS_UNROLL
    for (unsigned long k = 0; k < Register::s_nbRegisters; ++k)
    {
        const Float t = block.m_register[k];
        const Float line = Register::add(Register::div(t, Register::broadcast(lab::g_slope)), Register::broadcast(lab::g_offset));
        block.m_register[k] =
            Register::select(Register::greater(t, Register::broadcast(lab::g_forwardThreshold)), root.m_register[k], line);
    }
    return block;
}

/// Planes X, Y, Z (0 to 100) to planes L (0 to 100), a, b (signed). Works in whole blocks up to the block's end past count.
/// Planes of the two sides are not the same: a plane is read after the one of its index is written.
template <class Register, class Tin, class Tout>
void fromXYZToLabConvert(unsigned long count, const Tin** inPlanes, Tout** outPlanes)
{
    using Block = typename Register::Block;
    const typename Register::Limits limits = Register::template limits<Tout>();
    const auto third = simd::Power<Register>::exponent(lab::g_exponent);
    for (unsigned long i = 0; i < count; i += Register::s_blockLength)
    {
        const Block fy = labCurve<Register>(inPlanes[1] + i, lab::g_whiteY, third);
        Block result;
        KOVIS_UNROLL
        for (unsigned long k = 0; k < Register::s_nbRegisters; ++k)
        {
            result.m_register[k] = Register::mulSub(Register::broadcast(116.0F), fy.m_register[k], Register::broadcast(16.0F));
        }
        StorePixels<Register, Tout>::run(outPlanes[0] + i, result, limits);

        const Block fx = labCurve<Register>(inPlanes[0] + i, lab::g_whiteX, third);
        KOVIS_UNROLL
        for (unsigned long k = 0; k < Register::s_nbRegisters; ++k)
        {
            result.m_register[k] = Register::mul(Register::sub(fx.m_register[k], fy.m_register[k]), Register::broadcast(500.0F));
        }
        StorePixels<Register, Tout>::run(outPlanes[1] + i, result, limits);

        const Block fz = labCurve<Register>(inPlanes[2] + i, lab::g_whiteZ, third);
        KOVIS_UNROLL
        for (unsigned long k = 0; k < Register::s_nbRegisters; ++k)
        {
            result.m_register[k] = Register::mul(Register::sub(fy.m_register[k], fz.m_register[k]), Register::broadcast(200.0F));
        }
        StorePixels<Register, Tout>::run(outPlanes[2] + i, result, limits);
    }
}
} // namespace kovis::imaproc::color::kernel

#define KOVIS_INSTANTIATE_FROM_XYZ_TO_LAB_CONVERT(REGISTER, TIN, TOUT)                                                           \
    template void fromXYZToLabConvert<REGISTER, TIN, TOUT>(unsigned long, const TIN**, TOUT**);
