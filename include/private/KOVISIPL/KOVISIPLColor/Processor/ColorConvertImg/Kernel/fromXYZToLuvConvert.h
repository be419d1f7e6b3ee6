#pragma once

#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/Kernel/luv.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/Kernel/storePixels.h"

// Included inside a target region, after a register header.

namespace kovis::imaproc::color::kernel
{
/// Planes X, Y, Z to planes L, u, v, where L is 100 at a Y of 0.329024. Works in whole blocks up to the block's end past count.
/// Nothing guards the quotients: a black pixel gives 0, NaN, NaN.
template <class Register, class Tin, class Tout>
void fromXYZToLuvConvert(unsigned long count, const Tin** inPlanes, Tout** outPlanes)
{
    using Float = typename Register::Float;
    using Block = typename Register::Block;
    const typename Register::Limits limits = Register::template limits<Tout>();
    const auto third = simd::Power<Register>::exponent(luv::g_rootExponent);
    const Float threshold = luv::Cubes<Register>::forwardThreshold();
    const Float slope = luv::Cubes<Register>::forwardSlope();
    for (unsigned long i = 0; i < count; i += Register::s_blockLength)
    {
        const Block planeX = Register::load(inPlanes[0] + i);
        const Block planeY = Register::load(inPlanes[1] + i);
        const Block planeZ = Register::load(inPlanes[2] + i);
        Block ratio;
        Block root;
        KOVIS_UNROLL
        for (unsigned long k = 0; k < Register::s_nbRegisters; ++k)
        {
            ratio.m_register[k] = Register::div(planeY.m_register[k], Register::broadcast(luv::g_whiteY));
            root.m_register[k] = Register::max(ratio.m_register[k], Register::broadcast(0.0F));
        }
        simd::Power<Register>::run(root.m_register, third, root.m_register);

        Block lightness;
        Block chromaU;
        Block chromaV;
        KOVIS_UNROLL
        for (unsigned long k = 0; k < Register::s_nbRegisters; ++k)
        {
            const Float x = planeX.m_register[k];
            const Float y = planeY.m_register[k];
            const Float z = planeZ.m_register[k];

            const Float curve = Register::mulSub(root.m_register[k], Register::broadcast(116.0F), Register::broadcast(16.0F));
            const Float line = Register::mul(ratio.m_register[k], slope);
            const Float l = Register::select(Register::lessEqual(ratio.m_register[k], threshold), line, curve);
            lightness.m_register[k] = l;

            const Float d = Register::mulAdd(Register::broadcast(3.0F), z, Register::mulAdd(Register::broadcast(15.0F), y, x));
            const Float u = Register::div(Register::mul(Register::broadcast(4.0F), x), d);
            const Float v = Register::div(Register::mul(Register::broadcast(9.0F), y), d);
            const Float scale = Register::broadcast(13.0F);
            chromaU.m_register[k] = Register::mul(Register::mul(Register::sub(u, Register::broadcast(luv::g_whiteU)), l), scale);
            chromaV.m_register[k] = Register::mul(Register::mul(Register::sub(v, Register::broadcast(luv::g_whiteV)), l), scale);
        }
        StorePixels<Register, Tout>::run(outPlanes[0] + i, lightness, limits);
        StorePixels<Register, Tout>::run(outPlanes[1] + i, chromaU, limits);
        StorePixels<Register, Tout>::run(outPlanes[2] + i, chromaV, limits);
    }
}
} // namespace kovis::imaproc::color::kernel

#define KOVIS_INSTANTIATE_FROM_XYZ_TO_LUV_CONVERT(REGISTER, TIN, TOUT)                                                           \
    template void fromXYZToLuvConvert<REGISTER, TIN, TOUT>(unsigned long, const TIN**, TOUT**);
