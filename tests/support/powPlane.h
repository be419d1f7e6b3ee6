#pragma once

#include "KOVIS/KOVISSimd/PowNoCheckReg.h"

// Included inside a target region, after a register header.

namespace kovis::test
{
template <class Register>
KOVIS_SIMD_INLINE void powPlane(float y, unsigned long count, const float* x, float* out)
{
    using Power = simd::Power<Register>;
    const typename Power::Exponent exponent = Power::exponent(y);
    for (unsigned long i = 0; i < count; i += Register::s_blockLength)
    {
        typename Register::Block block = Register::load(x + i);
        Power::run(block.m_register, exponent, block.m_register);
        Register::store(out + i, block);
    }
}
} // namespace kovis::test
