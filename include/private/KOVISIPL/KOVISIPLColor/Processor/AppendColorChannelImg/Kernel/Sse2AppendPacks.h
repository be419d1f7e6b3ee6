#pragma once

#include "KOVIS/KOVISSimd/Sse2Register.h"
#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/Kernel/AppendPacks.h"

namespace kovis::imaproc::color::kernel
{
template <>
struct AppendPacks<simd::sse2::Register>
{
    using Int = simd::sse2::Register::Int;
    using Float = simd::sse2::Register::Float;

    static KOVIS_SIMD_INLINE Int widenBytes(const unsigned char* from)
    {
        return _mm_unpacklo_epi8(loadHalf(from), _mm_setzero_si128());
    }
    static KOVIS_SIMD_INLINE Int widenBytes(const signed char* from)
    {
        // each byte goes to the top of its lane and is shifted down with its sign
        const Int bytes = loadHalf(from);
        return _mm_srai_epi16(_mm_unpacklo_epi8(bytes, bytes), 8);
    }

    static KOVIS_SIMD_INLINE Int packLanes(Int a, Int b, short) { return _mm_packs_epi32(a, b); }
    /// There is no unsigned pack: the low 16 bits, made signed values that the signed pack leaves as they are.
    static KOVIS_SIMD_INLINE Int packLanes(Int a, Int b, unsigned short)
    {
        return _mm_packs_epi32(_mm_srai_epi32(_mm_slli_epi32(a, 16), 16), _mm_srai_epi32(_mm_slli_epi32(b, 16), 16));
    }

    static KOVIS_SIMD_INLINE Int packWords(Int a, Int b, signed char) { return _mm_packs_epi16(a, b); }
    static KOVIS_SIMD_INLINE Int packWords(Int a, Int b, unsigned char) { return _mm_packus_epi16(a, b); }

    static KOVIS_SIMD_INLINE Int truncateUnsigned(Float x) { return truncateUnsignedByHalves<simd::sse2::Register>(x); }
    static KOVIS_SIMD_INLINE Int addTopBit(Int value, Float mask)
    {
        return _mm_add_epi32(value, _mm_slli_epi32(_mm_castps_si128(mask), 31));
    }

private:
    static KOVIS_SIMD_INLINE Int loadHalf(const void* from) { return _mm_loadl_epi64(static_cast<const __m128i*>(from)); }
};
} // namespace kovis::imaproc::color::kernel
