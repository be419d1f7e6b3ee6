#pragma once

#include "KOVISIPL/KOVISIPLColor/Processor/LightnessImg/Kernel/PixelTag.h"

// Included inside a target region, after a register header and the LightnessLanes of its form.

namespace kovis::imaproc::color::kernel
{
/// The pixels of one block in lanes of their own width, for their minimum and maximum. On equal values, and on a NaN, the running
/// value stays.
template <class Register, class T>
struct PixelBlock
{
    using Lanes = LightnessLanes<Register>;
    using Raw = typename Lanes::template Raw<T>;
    static constexpr unsigned long s_nbRegisters = Register::s_blockLength * sizeof(T) / sizeof(Raw);
    static constexpr unsigned long s_nbLanes = sizeof(Raw) / sizeof(T);

    Raw m_register[s_nbRegisters];

    static KOVIS_SIMD_INLINE PixelBlock broadcast(T value)
    {
        T pixels[Register::s_blockLength];
        for (unsigned long i = 0; i < Register::s_blockLength; ++i)
        {
            pixels[i] = value;
        }
        return load(pixels);
    }

    static KOVIS_SIMD_INLINE PixelBlock load(const T* from)
    {
        PixelBlock block;
        KOVIS_UNROLL
        for (unsigned long k = 0; k < s_nbRegisters; ++k)
        {
            block.m_register[k] = Lanes::loadRaw(from + k * s_nbLanes);
        }
        return block;
    }

    KOVIS_SIMD_INLINE void lowerTo(const PixelBlock& pixels)
    {
        KOVIS_UNROLL
        for (unsigned long k = 0; k < s_nbRegisters; ++k)
        {
            m_register[k] = Lanes::min(pixels.m_register[k], m_register[k], PixelTag<T>());
        }
    }
    KOVIS_SIMD_INLINE void raiseTo(const PixelBlock& pixels)
    {
        KOVIS_UNROLL
        for (unsigned long k = 0; k < s_nbRegisters; ++k)
        {
            m_register[k] = Lanes::max(pixels.m_register[k], m_register[k], PixelTag<T>());
        }
    }

    /// By way of memory, for the register's load knows how to widen; the compilers keep it in registers.
    KOVIS_SIMD_INLINE typename Register::Block toFloat() const
    {
        T pixels[Register::s_blockLength];
        KOVIS_UNROLL
        for (unsigned long k = 0; k < s_nbRegisters; ++k)
        {
            Lanes::storeRaw(pixels + k * s_nbLanes, m_register[k]);
        }
        return Register::load(pixels);
    }
};

template <class Register>
struct PixelBlock<Register, float>
{
    typename Register::Block m_block;

    static KOVIS_SIMD_INLINE PixelBlock broadcast(float value)
    {
        PixelBlock block;
        KOVIS_UNROLL
        for (unsigned long k = 0; k < Register::s_nbRegisters; ++k)
        {
            block.m_block.m_register[k] = Register::broadcast(value);
        }
        return block;
    }
    static KOVIS_SIMD_INLINE PixelBlock load(const float* from) { return {Register::load(from)}; }

    // Minimum and maximum give their second operand when the two are equal, or either is a NaN.
    KOVIS_SIMD_INLINE void lowerTo(const PixelBlock& pixels)
    {
        KOVIS_UNROLL
        for (unsigned long k = 0; k < Register::s_nbRegisters; ++k)
        {
            m_block.m_register[k] = Register::min(pixels.m_block.m_register[k], m_block.m_register[k]);
        }
    }
    KOVIS_SIMD_INLINE void raiseTo(const PixelBlock& pixels)
    {
        KOVIS_UNROLL
        for (unsigned long k = 0; k < Register::s_nbRegisters; ++k)
        {
            m_block.m_register[k] = Register::max(pixels.m_block.m_register[k], m_block.m_register[k]);
        }
    }
    KOVIS_SIMD_INLINE typename Register::Block toFloat() const { return m_block; }
};
} // namespace kovis::imaproc::color::kernel
