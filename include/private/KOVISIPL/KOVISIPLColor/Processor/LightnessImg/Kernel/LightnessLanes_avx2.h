#pragma once

#include "KOVISIPL/KOVISIPLColor/Processor/LightnessImg/Kernel/PixelTag.h"

// Included inside a target region, after Avx2Register.h.

namespace kovis::imaproc::color::kernel
{
template <>
struct LightnessLanes<simd::avx2::Register> : VectorLanes<simd::avx2::Register>
{
    static KOVIS_SIMD_INLINE Int min(Int a, Int b, PixelTag<unsigned char>) { return _mm256_min_epu8(a, b); }
    static KOVIS_SIMD_INLINE Int max(Int a, Int b, PixelTag<unsigned char>) { return _mm256_max_epu8(a, b); }
    static KOVIS_SIMD_INLINE Int min(Int a, Int b, PixelTag<signed char>) { return _mm256_min_epi8(a, b); }
    static KOVIS_SIMD_INLINE Int max(Int a, Int b, PixelTag<signed char>) { return _mm256_max_epi8(a, b); }
    static KOVIS_SIMD_INLINE Int min(Int a, Int b, PixelTag<unsigned short>) { return _mm256_min_epu16(a, b); }
    static KOVIS_SIMD_INLINE Int max(Int a, Int b, PixelTag<unsigned short>) { return _mm256_max_epu16(a, b); }
    static KOVIS_SIMD_INLINE Int min(Int a, Int b, PixelTag<short>) { return _mm256_min_epi16(a, b); }
    static KOVIS_SIMD_INLINE Int max(Int a, Int b, PixelTag<short>) { return _mm256_max_epi16(a, b); }
    static KOVIS_SIMD_INLINE Int min(Int a, Int b, PixelTag<unsigned int>) { return _mm256_min_epu32(a, b); }
    static KOVIS_SIMD_INLINE Int max(Int a, Int b, PixelTag<unsigned int>) { return _mm256_max_epu32(a, b); }
    static KOVIS_SIMD_INLINE Int min(Int a, Int b, PixelTag<int>) { return _mm256_min_epi32(a, b); }
    static KOVIS_SIMD_INLINE Int max(Int a, Int b, PixelTag<int>) { return _mm256_max_epi32(a, b); }

    using VectorLanes::truncate;
    /// As in SSE2: 2 to the power 32 becomes 0.
    static KOVIS_SIMD_INLINE Int truncate(Register::Float a, PixelTag<unsigned int>)
    {
        const Register::Float half = Register::broadcast(2147483648.0F);
        const Register::Mask upper = Register::greaterEqual(a, half);
        const Register::Float lowered = Register::sub(a, _mm256_and_ps(upper, half));
        const Int truncated = Register::truncate(Register::max(lowered, Register::broadcast(0.0F)));
        return _mm256_add_epi32(truncated, _mm256_slli_epi32(_mm256_castps_si256(upper), 31));
    }
};
} // namespace kovis::imaproc::color::kernel
