#pragma once

#include "KOVIS/KOVISSimd/AvxRegister.h"

// AVX2: the float operations of AVX, and integer pixels.

namespace kovis::simd::avx2
{
struct Register : avx::Register
{
    static constexpr eInstructionSet::domain s_registerSet = eInstructionSet::eIS_AVX2;
    static constexpr eInstructionSet::domain s_arithmeticSet = eInstructionSet::eIS_AVX2;

    /// The pixels of one block as 32-bit signed integers.
    struct IntBlock
    {
        Int m_register[s_nbRegisters];
    };

    /// a where the mask is set, b elsewhere.
    static KOVIS_SIMD_INLINE Float select(Mask mask, Float a, Float b) { return _mm256_blendv_ps(b, a, mask); }

    // The parts of the table power that are integer work or table access.

    /// A positive float as m * 2^e, the mantissa in the range of the table search.
    static KOVIS_SIMD_INLINE void splitMantissa(Float a, Float& m, Float& e)
    {
        const Int first = _mm256_set1_epi32(detail::g_powFirstMantissa);
        const Int above = _mm256_sub_epi32(_mm256_castps_si256(a), first);
        e = toFloat(_mm256_srai_epi32(above, 23));
        m = _mm256_castsi256_ps(_mm256_add_epi32(_mm256_and_si256(above, _mm256_set1_epi32(0x007FFFFF)), first));
    }

    /// What the tables hold at the index i of a mantissa: A[i], B[i / 2], Ainv[i] and i / 16. The search goes by halves and gives
    /// i / 2 - 1. Each table stands in one register, which a permutation reads several times faster than a gather.
    static KOVIS_SIMD_INLINE void searchTables(Float m, Float& a, Float& b, Float& aInverse, Float& sixteenths)
    {
        const Mask bit2 = lessEqual(m, broadcast(detail::A[9]));
        const Mask bit1 = lessEqual(m, select(bit2, broadcast(detail::A[13]), broadcast(detail::A[5])));
        const Int bits21 = _mm256_or_si256(_mm256_and_si256(_mm256_castps_si256(bit2), _mm256_set1_epi32(2)),
                                           _mm256_and_si256(_mm256_castps_si256(bit1), _mm256_set1_epi32(1)));
        const Mask bit0 = lessEqual(m, lookUp4(detail::g_powThresholds, bits21));
        const Int index = _mm256_sub_epi32(_mm256_add_epi32(bits21, bits21), _mm256_castps_si256(bit0));
        a = lookUp8(detail::g_powA, index);
        b = lookUp8(detail::g_powB, index);
        aInverse = lookUp8(detail::g_powAInverse, index);
        sixteenths = lookUp8(detail::g_powSixteenths, index);
    }

    /// Of 2^(k / 16), k a whole number: an entry of A, and the power of 2, its exponent limited to -126 to 127.
    static KOVIS_SIMD_INLINE void splitSixteenths(Float k, Float& tablePart, Float& scale)
    {
        const Int ints = truncate(k);
        // 16 * (j + 127), where j is the whole part of k / 16: upward for a negative k, one more than downward otherwise.
        const Int raised = _mm256_add_epi32(_mm256_add_epi32(ints, _mm256_srai_epi32(ints, 31)), _mm256_set1_epi32(16 * 128));
        const Int whole = _mm256_and_si256(raised, _mm256_set1_epi32(-16));
        // 16 * 127 more than the entry's index, 0 to 16. The last entry is read as half of the first.
        const Int index = _mm256_sub_epi32(whole, ints);
        const Float entry =
            select(_mm256_castsi256_ps(_mm256_slli_epi32(index, 28)), lookUp8(detail::A + 8, index), lookUp8(detail::A, index));
        const Int isLast = _mm256_and_si256(index, _mm256_set1_epi32(16 * 128));
        tablePart = _mm256_castsi256_ps(_mm256_sub_epi32(_mm256_castps_si256(entry), _mm256_slli_epi32(isLast, 12)));

        const Int limited = _mm256_min_epi32(_mm256_max_epi32(whole, _mm256_set1_epi32(16)), _mm256_set1_epi32(16 * 254));
        scale = _mm256_castsi256_ps(_mm256_slli_epi32(limited, 19));
    }

    static KOVIS_SIMD_INLINE IntBlock loadInts(const unsigned char* from)
    {
        return {{_mm256_cvtepu8_epi32(loadLow(from)), _mm256_cvtepu8_epi32(loadLow(from + 8)),
                 _mm256_cvtepu8_epi32(loadLow(from + 16)), _mm256_cvtepu8_epi32(loadLow(from + 24))}};
    }
    static KOVIS_SIMD_INLINE IntBlock loadInts(const signed char* from)
    {
        return {{_mm256_cvtepi8_epi32(loadLow(from)), _mm256_cvtepi8_epi32(loadLow(from + 8)),
                 _mm256_cvtepi8_epi32(loadLow(from + 16)), _mm256_cvtepi8_epi32(loadLow(from + 24))}};
    }
    static KOVIS_SIMD_INLINE IntBlock loadInts(const unsigned short* from)
    {
        return {{_mm256_cvtepu16_epi32(loadHalf(from)), _mm256_cvtepu16_epi32(loadHalf(from + 8)),
                 _mm256_cvtepu16_epi32(loadHalf(from + 16)), _mm256_cvtepu16_epi32(loadHalf(from + 24))}};
    }
    static KOVIS_SIMD_INLINE IntBlock loadInts(const short* from)
    {
        return {{_mm256_cvtepi16_epi32(loadHalf(from)), _mm256_cvtepi16_epi32(loadHalf(from + 8)),
                 _mm256_cvtepi16_epi32(loadHalf(from + 16)), _mm256_cvtepi16_epi32(loadHalf(from + 24))}};
    }
    static KOVIS_SIMD_INLINE IntBlock loadInts(const int* from)
    {
        return {{loadRaw(from), loadRaw(from + 8), loadRaw(from + 16), loadRaw(from + 24)}};
    }
    /// Saturated to the signed range.
    static KOVIS_SIMD_INLINE IntBlock loadInts(const unsigned int* from)
    {
        const Int greatest = _mm256_set1_epi32(0x7FFFFFFF);
        return {{_mm256_min_epu32(loadRaw(from), greatest), _mm256_min_epu32(loadRaw(from + 8), greatest),
                 _mm256_min_epu32(loadRaw(from + 16), greatest), _mm256_min_epu32(loadRaw(from + 24), greatest)}};
    }

    using avx::Register::load;
    static KOVIS_SIMD_INLINE Block load(const unsigned int* from) { return loadUnsigned<Register>(from); }
    template <class T>
    static KOVIS_SIMD_INLINE Block load(const T* from)
    {
        const IntBlock ints = loadInts(from);
        return {
            {toFloat(ints.m_register[0]), toFloat(ints.m_register[1]), toFloat(ints.m_register[2]), toFloat(ints.m_register[3])}};
    }

    // The stores of integers saturate to the target's range. Packs work within 128-bit halves, so the lanes are put in order
    // after.

    static KOVIS_SIMD_INLINE void storeInts(signed char* to, const IntBlock& block, const Limits&)
    {
        storeRaw(to, orderBytes(_mm256_packs_epi16(_mm256_packs_epi32(block.m_register[0], block.m_register[1]),
                                                   _mm256_packs_epi32(block.m_register[2], block.m_register[3]))));
    }
    static KOVIS_SIMD_INLINE void storeInts(unsigned char* to, const IntBlock& block, const Limits&)
    {
        storeRaw(to, orderBytes(_mm256_packus_epi16(_mm256_packs_epi32(block.m_register[0], block.m_register[1]),
                                                    _mm256_packs_epi32(block.m_register[2], block.m_register[3]))));
    }
    static KOVIS_SIMD_INLINE void storeInts(short* to, const IntBlock& block, const Limits&)
    {
        storeRaw(to, orderWords(_mm256_packs_epi32(block.m_register[0], block.m_register[1])));
        storeRaw(to + 16, orderWords(_mm256_packs_epi32(block.m_register[2], block.m_register[3])));
    }
    static KOVIS_SIMD_INLINE void storeInts(unsigned short* to, const IntBlock& block, const Limits&)
    {
        storeRaw(to, orderWords(_mm256_packus_epi32(block.m_register[0], block.m_register[1])));
        storeRaw(to + 16, orderWords(_mm256_packus_epi32(block.m_register[2], block.m_register[3])));
    }
    static KOVIS_SIMD_INLINE void storeInts(int* to, const IntBlock& block, const Limits&)
    {
        KOVIS_UNROLL
        for (unsigned long k = 0; k < s_nbRegisters; ++k)
        {
            storeRaw(to + k * s_nbLanes, block.m_register[k]);
        }
    }
    static KOVIS_SIMD_INLINE void storeInts(unsigned int* to, const IntBlock& block, const Limits&)
    {
        KOVIS_UNROLL
        for (unsigned long k = 0; k < s_nbRegisters; ++k)
        {
            storeRaw(to + k * s_nbLanes, _mm256_max_epi32(block.m_register[k], _mm256_setzero_si256()));
        }
    }

    /// Limits, then truncates toward zero; a NaN becomes the least value. The limits of 8 and 16 bits are exact in float, so that
    /// limiting there gives what it gives in double; those of 32 bits need double. The value is the second operand of minimum and
    /// maximum, so that a NaN passes both; the truncation makes it the least int and the saturating store the least value.
    template <class T>
    static KOVIS_SIMD_INLINE void storeTruncated(T* to, const Block& block, const Limits& limits)
    {
        IntBlock ints;
        KOVIS_UNROLL
        for (unsigned long k = 0; k < s_nbRegisters; ++k)
        {
            ints.m_register[k] = truncate(max(limits.m_minFloat, min(limits.m_maxFloat, block.m_register[k])));
        }
        storeInts(to, ints, limits);
    }
    static KOVIS_SIMD_INLINE void storeTruncated(int* to, const Block& block, const Limits& limits)
    {
        KOVIS_UNROLL
        for (unsigned long k = 0; k < s_nbRegisters; ++k)
        {
            const Float t = block.m_register[k];
            const __m128i low = _mm256_cvttpd_epi32(clamp(_mm256_cvtps_pd(_mm256_castps256_ps128(t)), limits));
            const __m128i high = _mm256_cvttpd_epi32(clamp(_mm256_cvtps_pd(_mm256_extractf128_ps(t, 1)), limits));
            storeRaw(to + k * s_nbLanes, _mm256_inserti128_si256(_mm256_castsi128_si256(low), high, 1));
        }
    }
    static KOVIS_SIMD_INLINE void storeTruncated(unsigned int* to, const Block& block, const Limits& limits)
    {
        KOVIS_UNROLL
        for (unsigned long k = 0; k < s_nbRegisters; ++k)
        {
            const Float t = block.m_register[k];
            const __m128i low = truncateUnsigned(clamp(_mm256_cvtps_pd(_mm256_castps256_ps128(t)), limits));
            const __m128i high = truncateUnsigned(clamp(_mm256_cvtps_pd(_mm256_extractf128_ps(t, 1)), limits));
            storeRaw(to + k * s_nbLanes, _mm256_inserti128_si256(_mm256_castsi128_si256(low), high, 1));
        }
    }

protected:
    /// By the multiply-add of TRegister, which is this form or one that derives from it.
    template <class TRegister>
    static KOVIS_SIMD_INLINE Block loadUnsigned(const unsigned int* from)
    {
        return {{toFloatUnsigned<TRegister>(loadRaw(from)), toFloatUnsigned<TRegister>(loadRaw(from + 8)),
                 toFloatUnsigned<TRegister>(loadRaw(from + 16)), toFloatUnsigned<TRegister>(loadRaw(from + 24))}};
    }

private:
    /// The entry of eight that the low three bits of each lane name.
    static KOVIS_SIMD_INLINE Float lookUp8(const float* table, Int index)
    {
        return _mm256_permutevar8x32_ps(_mm256_loadu_ps(table), index);
    }

    static KOVIS_SIMD_INLINE __m128i loadLow(const void* from) { return _mm_loadl_epi64(static_cast<const __m128i*>(from)); }
    static KOVIS_SIMD_INLINE __m128i loadHalf(const void* from) { return _mm_loadu_si128(static_cast<const __m128i*>(from)); }

    static KOVIS_SIMD_INLINE __m256d clamp(__m256d t, const Limits& limits)
    {
        return _mm256_max_pd(limits.m_min, _mm256_min_pd(limits.m_max, t));
    }

    /// Four doubles in 0 to 4294967295, or NaN, to integers; the conversion itself is signed and gives the least int for a NaN.
    static KOVIS_SIMD_INLINE __m128i truncateUnsigned(__m256d t)
    {
        const __m256d half = _mm256_set1_pd(2147483648.0);
        const __m256d upper = _mm256_cmp_pd(t, half, _CMP_GE_OQ);
        const __m128i truncated = _mm256_cvttpd_epi32(_mm256_sub_pd(t, _mm256_and_pd(upper, half)));
        const __m128 upperLanes = _mm_shuffle_ps(_mm_castpd_ps(_mm256_castpd256_pd128(upper)),
                                                 _mm_castpd_ps(_mm256_extractf128_pd(upper, 1)), _MM_SHUFFLE(2, 0, 2, 0));
        const __m128i added = _mm_and_si128(_mm_castps_si128(upperLanes), _mm_set1_epi32(static_cast<int>(0x80000000U)));
        return _mm_add_epi32(_mm_max_epi32(truncated, _mm_setzero_si128()), added);
    }

    /// The halves convert exactly, so that the one rounding is that of the sum, fused or not.
    template <class TRegister>
    static KOVIS_SIMD_INLINE Float toFloatUnsigned(Int a)
    {
        const Float high = _mm256_cvtepi32_ps(_mm256_srli_epi32(a, 16));
        const Float low = _mm256_cvtepi32_ps(_mm256_and_si256(a, _mm256_set1_epi32(0xFFFF)));
        return TRegister::mulAdd(high, _mm256_set1_ps(65536.0F), low);
    }

    static KOVIS_SIMD_INLINE Int orderBytes(Int packed)
    {
        return _mm256_permutevar8x32_epi32(packed, _mm256_setr_epi32(0, 4, 1, 5, 2, 6, 3, 7));
    }
    static KOVIS_SIMD_INLINE Int orderWords(Int packed) { return _mm256_permute4x64_epi64(packed, _MM_SHUFFLE(3, 1, 2, 0)); }
};
} // namespace kovis::simd::avx2
