#pragma once

#include "KOVIS/KOVISSimd/Avx2Register.h"
#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/Kernel/AppendPacks.h"

namespace kovis::imaproc::color::kernel
{
template <>
struct AppendPacks<simd::avx2::Register>
{
    using Int = simd::avx2::Register::Int;
    using Float = simd::avx2::Register::Float;

    static KOVIS_SIMD_INLINE Int widenBytes(const unsigned char* from) { return _mm256_cvtepu8_epi16(loadHalf(from)); }
    static KOVIS_SIMD_INLINE Int widenBytes(const signed char* from) { return _mm256_cvtepi8_epi16(loadHalf(from)); }

    // Packs work within 128-bit halves, so the pixels are put in order after.

    static KOVIS_SIMD_INLINE Int packLanes(Int a, Int b, short) { return order(_mm256_packs_epi32(a, b)); }
    static KOVIS_SIMD_INLINE Int packLanes(Int a, Int b, unsigned short) { return order(_mm256_packus_epi32(a, b)); }

    static KOVIS_SIMD_INLINE Int packWords(Int a, Int b, signed char) { return order(_mm256_packs_epi16(a, b)); }
    static KOVIS_SIMD_INLINE Int packWords(Int a, Int b, unsigned char) { return order(_mm256_packus_epi16(a, b)); }

    static KOVIS_SIMD_INLINE Int truncateUnsigned(Float x) { return truncateUnsignedByHalves<simd::avx2::Register>(x); }
    static KOVIS_SIMD_INLINE Int addTopBit(Int value, Float mask)
    {
        return _mm256_add_epi32(value, _mm256_slli_epi32(_mm256_castps_si256(mask), 31));
    }

private:
    static KOVIS_SIMD_INLINE __m128i loadHalf(const void* from) { return _mm_loadu_si128(static_cast<const __m128i*>(from)); }
    static KOVIS_SIMD_INLINE Int order(Int packed) { return _mm256_permute4x64_epi64(packed, _MM_SHUFFLE(3, 1, 2, 0)); }
};
} // namespace kovis::imaproc::color::kernel
