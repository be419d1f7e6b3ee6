#pragma once

#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/Kernel/luv.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/Kernel/storePixels.h"

// Included inside a target region, after a register header.

namespace kovis::imaproc::color::kernel
{
/// Planes L, u, v to planes X, Y, Z, where an L of 100 is a Y of 0.329024. Works in whole blocks up to the block's end past
/// count. Nothing guards the quotients: an L of 0 gives X and Z that are NaN.
template <class Register, class Tin, class Tout>
void fromLuvToXYZConvert(unsigned long count, const Tin** inPlanes, Tout** outPlanes)
{
    using Float = typename Register::Float;
    using Block = typename Register::Block;
    const typename Register::Limits limits = Register::template limits<Tout>();
    const auto cube = simd::Power<Register>::exponent(luv::g_cubeExponent);
    const Float slope = luv::Cubes<Register>::inverseSlope();
    for (unsigned long i = 0; i < count; i += Register::s_blockLength)
    {
        const Block lightness = Register::load(inPlanes[0] + i);
        Block curve;
        KOVIS_UNROLL
        for (unsigned long k = 0; k < Register::s_nbRegisters; ++k)
        {
            curve.m_register[k] =
                Register::div(Register::add(lightness.m_register[k], Register::broadcast(16.0F)), Register::broadcast(116.0F));
        }
        simd::Power<Register>::run(curve.m_register, cube, curve.m_register);

        Block planeY;
        KOVIS_UNROLL
        for (unsigned long k = 0; k < Register::s_nbRegisters; ++k)
        {
            const Float l = lightness.m_register[k];
            const Float ratio = Register::select(Register::lessEqual(l, Register::broadcast(luv::g_branchPoint)),
                                                 Register::mul(l, slope), curve.m_register[k]);
            planeY.m_register[k] = Register::mul(ratio, Register::broadcast(luv::g_whiteY));
        }
        StorePixels<Register, Tout>::run(outPlanes[1] + i, planeY, limits);

        const Block chromaU = Register::load(inPlanes[1] + i);
        const Block chromaV = Register::load(inPlanes[2] + i);
        Block planeX;
        Block planeZ;
        KOVIS_UNROLL
        for (unsigned long k = 0; k < Register::s_nbRegisters; ++k)
        {
            const Float w = Register::mul(lightness.m_register[k], Register::broadcast(13.0F));
            const Float u = Register::add(Register::div(chromaU.m_register[k], w), Register::broadcast(luv::g_whiteU));
            const Float v = Register::add(Register::div(chromaV.m_register[k], w), Register::broadcast(luv::g_whiteV));
            const Float q = Register::mul(Register::broadcast(4.0F), v);
            const Float y = planeY.m_register[k];
            planeX.m_register[k] = Register::mul(Register::div(Register::mul(Register::broadcast(9.0F), u), q), y);
            const Float rest = Register::negMulAdd(Register::broadcast(3.0F), u, Register::broadcast(12.0F));
            planeZ.m_register[k] = Register::mul(Register::div(Register::negMulAdd(Register::broadcast(20.0F), v, rest), q), y);
        }
        StorePixels<Register, Tout>::run(outPlanes[0] + i, planeX, limits);
        StorePixels<Register, Tout>::run(outPlanes[2] + i, planeZ, limits);
    }
}
} // namespace kovis::imaproc::color::kernel

#define KOVIS_INSTANTIATE_FROM_LUV_TO_XYZ_CONVERT(REGISTER, TIN, TOUT)                                                           \
    template void fromLuvToXYZConvert<REGISTER, TIN, TOUT>(unsigned long, const TIN**, TOUT**);
