#pragma once

// Included inside a target region, after a register header.

namespace kovis::imaproc::color::kernel
{
/// A half added away from zero, in float: what is then truncated is the value rounded half away from zero.
template <class Register>
KOVIS_SIMD_INLINE typename Register::Block roundHalfAway(const typename Register::Block& block)
{
    const typename Register::Float zero = Register::broadcast(0.0F);
    const typename Register::Float half = Register::broadcast(0.5F);
    const typename Register::Float minusHalf = Register::broadcast(-0.5F);
    typename Register::Block rounded;
    KOVIS_UNROLL
    for (unsigned long k = 0; k < Register::s_nbRegisters; ++k)
    {
        const typename Register::Float x = block.m_register[k];
        rounded.m_register[k] = Register::add(x, Register::select(Register::less(x, zero), minusHalf, half));
    }
    return rounded;
}
} // namespace kovis::imaproc::color::kernel
