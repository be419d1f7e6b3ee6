#pragma once

#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/Kernel/storePixels.h"

// Included inside a target region, after a register header.

namespace kovis::imaproc::color::kernel
{
/// Mixes inSizeC planes into outSizeC planes. The matrix has one row per output plane: a coefficient per input plane, then the
/// offset. Works in whole blocks up to the block's end past count. A row is stored before the next one reads its input, and
/// input is loaded anew for each row: planes may be the same on both sides, and then a row sees what the rows before it wrote.
template <class Register, class Tin, class Tout>
void linearConvert(unsigned int inSizeC, unsigned int outSizeC, const float* matrix, unsigned long count, const Tin** in,
                   Tout** out)
{
    const typename Register::Limits limits = Register::template limits<Tout>();
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
                const typename Register::Block pixels = Register::load(in[c] + i);
                const typename Register::Float factor = Register::broadcast(coefficient[c]);
                KOVIS_UNROLL
                for (unsigned long k = 0; k < Register::s_nbRegisters; ++k)
                {
                    sum.m_register[k] = Register::mulAdd(pixels.m_register[k], factor, sum.m_register[k]);
                }
            }
            StorePixels<Register, Tout>::run(out[r] + i, sum, limits);
            coefficient += inSizeC + 1UL;
        }
    }
}
} // namespace kovis::imaproc::color::kernel

#define KOVIS_INSTANTIATE_LINEAR_CONVERT(REGISTER, TIN, TOUT)                                                                    \
    template void linearConvert<REGISTER, TIN, TOUT>(unsigned int, unsigned int, const float*, unsigned long, const TIN**,       \
                                                     TOUT**);
