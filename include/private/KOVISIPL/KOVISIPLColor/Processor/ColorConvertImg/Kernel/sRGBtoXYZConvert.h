#pragma once

#include "KOVIS/KOVISSimd/PowNoCheckReg.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/Kernel/storePixels.h"

// Included inside a target region, after a register header.

namespace kovis::imaproc::color::kernel
{
namespace srgb
{
constexpr float g_branchPoint = simd::floatOfBits(0x3D25AEE6);  ///< 0.04045
constexpr float g_offset = simd::floatOfBits(0x3D6147AE);       ///< 0.055
constexpr float g_divisor = simd::floatOfBits(0x3F870A3D);      ///< 1.055
constexpr float g_exponent = simd::floatOfBits(0x4019999A);     ///< 2.4
constexpr float g_slopeDivisor = simd::floatOfBits(0x414EB852); ///< 12.92
} // namespace srgb

/// The sRGB curve of a block of samples, from the scale of 0 to 255 to linear light on that of 0 to 100. A sample below 0 stays
/// on the line.
template <class Register>
KOVIS_SIMD_INLINE typename Register::Block linearFromSRGB(const typename Register::Block& samples,
                                                          const typename simd::Power<Register>::Exponent& gamma)
{
    using Float = typename Register::Float;
    typename Register::Block value;
    typename Register::Block result;
    KOVIS_UNROLL
    for (unsigned long k = 0; k < Register::s_nbRegisters; ++k)
    {
        const Float v = Register::div(samples.m_register[k], Register::broadcast(255.0F));
        value.m_register[k] = v;
        result.m_register[k] =
            Register::div(Register::add(v, Register::broadcast(srgb::g_offset)), Register::broadcast(srgb::g_divisor));
    }
    simd::Power<Register>::run(result.m_register, gamma, result.m_register);
    KOVIS_UNROLL
    for (unsigned long k = 0; k < Register::s_nbRegisters; ++k)
    {
        const Float v = value.m_register[k];
        const Float line = Register::div(v, Register::broadcast(srgb::g_slopeDivisor));
        const typename Register::Mask above = Register::greater(v, Register::broadcast(srgb::g_branchPoint));
        result.m_register[k] = Register::mul(Register::select(above, result.m_register[k], line), Register::broadcast(100.0F));
    }
    return result;
}

/// Mixes inSizeC planes of sRGB samples (0 to 255 in every pixel type), made linear, into outSizeC planes. The matrix is that of
/// linearConvert. Works in whole blocks up to the block's end past count. A row is stored before the next one reads its input,
/// and the curve runs anew in each row: planes may be the same on both sides, and then a row takes what the rows before it wrote
/// for samples.
template <class Register, class Tin, class Tout>
void sRGBtoXYZConvert(unsigned int inSizeC, unsigned int outSizeC, const float* matrix, unsigned long count, const Tin** inPlanes,
                      Tout** outPlanes)
{
    const typename Register::Limits limits = Register::template limits<Tout>();
    const auto gamma = simd::Power<Register>::exponent(srgb::g_exponent);
    for (unsigned long i = 0; i < count; i += Register::s_blockLength)
    {
        const float* coefficient = matrix;
        for (unsigned int r = 0; r < outSizeC; ++r)
        {
            typename Register::Block sum;
            const typename Register::Float offset = Register::broadcast(coefficient[inSizeC]);
            KOVIS_UNROLL
            for (unsigned long k = 0; k < Register::s_nbRegisters; ++k)
            {
                sum.m_register[k] = offset;
            }
            for (unsigned int c = 0; c < inSizeC; ++c)
            {
                const typename Register::Block light = linearFromSRGB<Register>(Register::load(inPlanes[c] + i), gamma);
                const typename Register::Float factor = Register::broadcast(coefficient[c]);
                KOVIS_UNROLL
                for (unsigned long k = 0; k < Register::s_nbRegisters; ++k)
                {
                    sum.m_register[k] = Register::mulAdd(light.m_register[k], factor, sum.m_register[k]);
                }
            }
            StorePixels<Register, Tout>::run(outPlanes[r] + i, sum, limits);
            coefficient += inSizeC + 1UL;
        }
    }
}
} // namespace kovis::imaproc::color::kernel

#define KOVIS_INSTANTIATE_SRGB_TO_XYZ_CONVERT(REGISTER, TIN, TOUT)                                                               \
    template void sRGBtoXYZConvert<REGISTER, TIN, TOUT>(unsigned int, unsigned int, const float*, unsigned long, const TIN**,    \
                                                        TOUT**);
