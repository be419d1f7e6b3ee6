#pragma once

#include "KOVISIPL/KOVISIPLColor/Processor/LightnessImg/Kernel/PixelTag.h"

// Included after GenericRegister.h.

namespace kovis::imaproc::color::kernel
{
template <>
struct LightnessLanes<simd::generic::Register>
{
    template <class T>
    using Raw = T;

    template <class T>
    static KOVIS_SIMD_INLINE T loadRaw(const T* from)
    {
        return *from;
    }
    template <class T>
    static KOVIS_SIMD_INLINE void storeRaw(T* to, T value)
    {
        *to = value;
    }
    template <class T>
    static KOVIS_SIMD_INLINE T min(T a, T b, PixelTag<T>)
    {
        return a < b ? a : b;
    }
    template <class T>
    static KOVIS_SIMD_INLINE T max(T a, T b, PixelTag<T>)
    {
        return a > b ? a : b;
    }

    template <class T>
    static KOVIS_SIMD_INLINE long long truncate(float a, PixelTag<T>)
    {
        return simd::generic::Register::truncate(a);
    }
    /// To 64 bits, of which the low half is stored: 2 to the power 32 becomes 0.
    static KOVIS_SIMD_INLINE long long truncate(float a, PixelTag<unsigned int>) { return _mm_cvttss_si64(_mm_set_ss(a)); }

    template <class T>
    static KOVIS_SIMD_INLINE void storeInts(T* to, const simd::generic::Register::IntBlock& block)
    {
        *to = static_cast<T>(block.m_register[0]);
    }
};
} // namespace kovis::imaproc::color::kernel
