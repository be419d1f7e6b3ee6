#pragma once

#include "KOVIS/KOVISSimd/PowNoCheckReg.h"

// What PowerUnderTest.h declares. Included inside a target region, after a register header.

namespace kovis::test
{
template <class Register>
void powPlane(float y, unsigned long count, const float* x, float* out)
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

template <class Register>
void searchPlane(unsigned long count, const float* mantissas, float* const* found)
{
    for (unsigned long i = 0; i < count; i += Register::s_blockLength)
    {
        const typename Register::Block block = Register::load(mantissas + i);
        typename Register::Block planes[4];
        for (unsigned long k = 0; k < Register::s_nbRegisters; ++k)
        {
            Register::searchTables(block.m_register[k], planes[0].m_register[k], planes[1].m_register[k], planes[2].m_register[k],
                                   planes[3].m_register[k]);
        }
        for (unsigned long plane = 0; plane < 4; ++plane)
        {
            Register::store(found[plane] + i, planes[plane]);
        }
    }
}

template <class Register>
void splitPlane(unsigned long count, const float* sixteenths, float* const* found)
{
    for (unsigned long i = 0; i < count; i += Register::s_blockLength)
    {
        const typename Register::Block block = Register::load(sixteenths + i);
        typename Register::Block tablePart;
        typename Register::Block scale;
        for (unsigned long k = 0; k < Register::s_nbRegisters; ++k)
        {
            Register::splitSixteenths(block.m_register[k], tablePart.m_register[k], scale.m_register[k]);
        }
        Register::store(found[0] + i, tablePart);
        Register::store(found[1] + i, scale);
    }
}
} // namespace kovis::test

#define KOVIS_INSTANTIATE_POWER_UNDER_TEST(REGISTER)                                                                             \
    template void powPlane<REGISTER>(float, unsigned long, const float*, float*);                                                \
    template void searchPlane<REGISTER>(unsigned long, const float*, float* const*);                                             \
    template void splitPlane<REGISTER>(unsigned long, const float*, float* const*);
