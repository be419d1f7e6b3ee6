#pragma once

// Included inside a target region, after a register header.

namespace kovis::imaproc::color::kernel
{
/// A block of results into an integer plane: rounded half away from zero, the half added in float, and saturated.
template <class Register, class Tout>
struct StorePixels
{
    static KOVIS_SIMD_INLINE void run(Tout* to, const typename Register::Block& block, const typename Register::Limits& limits)
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
        Register::storeTruncated(to, rounded, limits);
    }
};

/// A block of results into a float plane: as they are.
template <class Register>
struct StorePixels<Register, float>
{
    static KOVIS_SIMD_INLINE void run(float* to, const typename Register::Block& block, const typename Register::Limits&)
    {
        Register::store(to, block);
    }
};
} // namespace kovis::imaproc::color::kernel
