#pragma once

#include "KOVISIPL/KOVISIPLColor/Processor/LightnessImg/Kernel/PixelTag.h"

// Included inside a target region, after Sse2Register.h.

namespace kovis::imaproc::color::kernel
{
template <>
struct LightnessLanes<simd::sse2::Register> : VectorLanes<simd::sse2::Register>
{
    // There is one minimum and maximum for unsigned bytes and one for signed words; the others shift their range to use these,
    // or compare.

    static KOVIS_SIMD_INLINE Int min(Int a, Int b, PixelTag<unsigned char>) { return _mm_min_epu8(a, b); }
    static KOVIS_SIMD_INLINE Int max(Int a, Int b, PixelTag<unsigned char>) { return _mm_max_epu8(a, b); }
    static KOVIS_SIMD_INLINE Int min(Int a, Int b, PixelTag<signed char>)
    {
        return flipBytes(_mm_min_epu8(flipBytes(a), flipBytes(b)));
    }
    static KOVIS_SIMD_INLINE Int max(Int a, Int b, PixelTag<signed char>)
    {
        return flipBytes(_mm_max_epu8(flipBytes(a), flipBytes(b)));
    }
    static KOVIS_SIMD_INLINE Int min(Int a, Int b, PixelTag<short>) { return _mm_min_epi16(a, b); }
    static KOVIS_SIMD_INLINE Int max(Int a, Int b, PixelTag<short>) { return _mm_max_epi16(a, b); }
    static KOVIS_SIMD_INLINE Int min(Int a, Int b, PixelTag<unsigned short>)
    {
        return flipWords(_mm_min_epi16(flipWords(a), flipWords(b)));
    }
    static KOVIS_SIMD_INLINE Int max(Int a, Int b, PixelTag<unsigned short>)
    {
        return flipWords(_mm_max_epi16(flipWords(a), flipWords(b)));
    }
    static KOVIS_SIMD_INLINE Int min(Int a, Int b, PixelTag<int>) { return select(_mm_cmplt_epi32(a, b), a, b); }
    static KOVIS_SIMD_INLINE Int max(Int a, Int b, PixelTag<int>) { return select(_mm_cmpgt_epi32(a, b), a, b); }
    static KOVIS_SIMD_INLINE Int min(Int a, Int b, PixelTag<unsigned int>)
    {
        return select(_mm_cmplt_epi32(flipLanes(a), flipLanes(b)), a, b);
    }
    static KOVIS_SIMD_INLINE Int max(Int a, Int b, PixelTag<unsigned int>)
    {
        return select(_mm_cmpgt_epi32(flipLanes(a), flipLanes(b)), a, b);
    }

    using VectorLanes::truncate;
    /// The conversion is signed: the upper half of the range goes through it shifted down. 2 to the power 32 becomes 0.
    static KOVIS_SIMD_INLINE Int truncate(Register::Float a, PixelTag<unsigned int>)
    {
        const Register::Float half = Register::broadcast(2147483648.0F);
        const Register::Mask upper = Register::greaterEqual(a, half);
        const Register::Float lowered = Register::sub(a, _mm_and_ps(upper, half));
        const Int truncated = Register::truncate(Register::max(lowered, Register::broadcast(0.0F)));
        return _mm_add_epi32(truncated, _mm_slli_epi32(_mm_castps_si128(upper), 31));
    }

private:
    static KOVIS_SIMD_INLINE Int flipBytes(Int a) { return _mm_xor_si128(a, _mm_set1_epi8(static_cast<char>(0x80))); }
    static KOVIS_SIMD_INLINE Int flipWords(Int a) { return _mm_xor_si128(a, _mm_set1_epi16(static_cast<short>(0x8000))); }
    static KOVIS_SIMD_INLINE Int flipLanes(Int a) { return _mm_xor_si128(a, _mm_set1_epi32(static_cast<int>(0x80000000U))); }
    static KOVIS_SIMD_INLINE Int select(Int mask, Int a, Int b)
    {
        return _mm_or_si128(_mm_and_si128(mask, a), _mm_andnot_si128(mask, b));
    }
};
} // namespace kovis::imaproc::color::kernel
