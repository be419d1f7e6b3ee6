#pragma once

#include "KOVISIPL/KOVISIPLColor/Processor/LightnessImg/Kernel/PixelTag.h"

// Included inside a target region, after Avx512Register.h.

namespace kovis::imaproc::color::kernel
{
template <>
struct LightnessLanes<simd::avx512::Register> : VectorLanes<simd::avx512::Register>
{
    static KOVIS_SIMD_INLINE Int min(Int a, Int b, PixelTag<unsigned char>) { return _mm512_min_epu8(a, b); }
    static KOVIS_SIMD_INLINE Int max(Int a, Int b, PixelTag<unsigned char>) { return _mm512_max_epu8(a, b); }
    static KOVIS_SIMD_INLINE Int min(Int a, Int b, PixelTag<signed char>) { return _mm512_min_epi8(a, b); }
    static KOVIS_SIMD_INLINE Int max(Int a, Int b, PixelTag<signed char>) { return _mm512_max_epi8(a, b); }
    static KOVIS_SIMD_INLINE Int min(Int a, Int b, PixelTag<unsigned short>) { return _mm512_min_epu16(a, b); }
    static KOVIS_SIMD_INLINE Int max(Int a, Int b, PixelTag<unsigned short>) { return _mm512_max_epu16(a, b); }
    static KOVIS_SIMD_INLINE Int min(Int a, Int b, PixelTag<short>) { return _mm512_min_epi16(a, b); }
    static KOVIS_SIMD_INLINE Int max(Int a, Int b, PixelTag<short>) { return _mm512_max_epi16(a, b); }
    static KOVIS_SIMD_INLINE Int min(Int a, Int b, PixelTag<unsigned int>) { return _mm512_maskz_min_epu32(s_all, a, b); }
    static KOVIS_SIMD_INLINE Int max(Int a, Int b, PixelTag<unsigned int>) { return _mm512_maskz_max_epu32(s_all, a, b); }
    static KOVIS_SIMD_INLINE Int min(Int a, Int b, PixelTag<int>) { return _mm512_maskz_min_epi32(s_all, a, b); }
    static KOVIS_SIMD_INLINE Int max(Int a, Int b, PixelTag<int>) { return _mm512_maskz_max_epi32(s_all, a, b); }

    using VectorLanes::truncate;
    /// By the unsigned conversion: 2 to the power 32 becomes the greatest value.
    static KOVIS_SIMD_INLINE Int truncate(Register::Float a, PixelTag<unsigned int>) { return Register::truncateUnsigned(a); }

private:
    static constexpr Register::Mask s_all = Register::s_allLanes;
};
} // namespace kovis::imaproc::color::kernel
