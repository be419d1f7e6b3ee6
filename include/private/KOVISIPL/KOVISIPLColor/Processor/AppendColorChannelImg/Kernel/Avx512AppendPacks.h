#pragma once

#include "KOVIS/KOVISSimd/Avx512Register.h"
#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/Kernel/AppendPacks.h"

namespace kovis::imaproc::color::kernel
{
template <>
struct AppendPacks<simd::avx512::Register>
{
    using Int = simd::avx512::Register::Int;
    using Float = simd::avx512::Register::Float;

    static KOVIS_SIMD_INLINE Int widenBytes(const unsigned char* from) { return _mm512_cvtepu8_epi16(loadHalf(from)); }
    static KOVIS_SIMD_INLINE Int widenBytes(const signed char* from) { return _mm512_cvtepi8_epi16(loadHalf(from)); }

    // Packs work within 128-bit quarters, so the pixels are put in order after.

    static KOVIS_SIMD_INLINE Int packLanes(Int a, Int b, short) { return order(_mm512_packs_epi32(a, b)); }
    static KOVIS_SIMD_INLINE Int packLanes(Int a, Int b, unsigned short) { return order(_mm512_packus_epi32(a, b)); }

    static KOVIS_SIMD_INLINE Int packWords(Int a, Int b, signed char) { return order(_mm512_packs_epi16(a, b)); }
    static KOVIS_SIMD_INLINE Int packWords(Int a, Int b, unsigned char) { return order(_mm512_packus_epi16(a, b)); }

    static KOVIS_SIMD_INLINE Int truncateUnsigned(Float x) { return simd::avx512::Register::truncateUnsigned(x); }

private:
    static KOVIS_SIMD_INLINE __m256i loadHalf(const void* from) { return _mm256_loadu_si256(static_cast<const __m256i*>(from)); }
    /// By a full mask, for GCC 12 takes the plain call's unused source for an uninitialised one.
    static KOVIS_SIMD_INLINE Int order(Int packed)
    {
        return _mm512_maskz_permutexvar_epi64(0xFF, _mm512_setr_epi64(0, 2, 4, 6, 1, 3, 5, 7), packed);
    }
};
} // namespace kovis::imaproc::color::kernel
