#pragma once

#include "KOVIS/KOVISSimd/Lanes128.h"

// SSE2: four registers of four lanes.

namespace kovis::simd::sse2
{
struct Register
{
    using Float = __m128;
    using Mask = __m128;
    using Int = __m128i;

    static constexpr eInstructionSet::domain s_registerSet = eInstructionSet::eIS_SSE2;
    static constexpr eInstructionSet::domain s_arithmeticSet = eInstructionSet::eIS_SSE2;

    static constexpr unsigned long s_nbLanes = 4;
    static constexpr unsigned long s_nbRegisters = 4;
    static constexpr unsigned long s_blockLength = s_nbLanes * s_nbRegisters;

    /// The pixels of one block as floats.
    struct Block
    {
        Float m_register[s_nbRegisters];
    };

    /// The pixels of one block as 32-bit signed integers.
    struct IntBlock
    {
        Int m_register[s_nbRegisters];
    };

    /// Least and greatest value of a pixel type, read once before a loop. The float pair is exact for 8 and 16 bits only.
    struct Limits
    {
        __m128d m_min;
        __m128d m_max;
        Float m_minFloat;
        Float m_maxFloat;
    };

    template <class T>
    static KOVIS_SIMD_INLINE Limits limits()
    {
        return {
            _mm_set1_pd(static_cast<double>(NumericLimits<T>::s_min)), _mm_set1_pd(static_cast<double>(NumericLimits<T>::s_max)),
            _mm_set1_ps(static_cast<float>(NumericLimits<T>::s_min)), _mm_set1_ps(static_cast<float>(NumericLimits<T>::s_max))};
    }

    static KOVIS_SIMD_INLINE Float broadcast(float value) { return _mm_set1_ps(value); }

    static KOVIS_SIMD_INLINE Float add(Float a, Float b) { return _mm_add_ps(a, b); }
    static KOVIS_SIMD_INLINE Float sub(Float a, Float b) { return _mm_sub_ps(a, b); }
    static KOVIS_SIMD_INLINE Float mul(Float a, Float b) { return _mm_mul_ps(a, b); }
    static KOVIS_SIMD_INLINE Float div(Float a, Float b) { return _mm_div_ps(a, b); }
    /// a * b + c, with a rounding after each operation.
    static KOVIS_SIMD_INLINE Float mulAdd(Float a, Float b, Float c) { return _mm_add_ps(_mm_mul_ps(a, b), c); }
    /// a * b - c, with a rounding after each operation.
    static KOVIS_SIMD_INLINE Float mulSub(Float a, Float b, Float c) { return _mm_sub_ps(_mm_mul_ps(a, b), c); }
    /// c - a * b, with a rounding after each operation.
    static KOVIS_SIMD_INLINE Float negMulAdd(Float a, Float b, Float c) { return _mm_sub_ps(c, _mm_mul_ps(a, b)); }
    /// a > b ? a : b, so the second operand when either is a NaN.
    static KOVIS_SIMD_INLINE Float max(Float a, Float b) { return _mm_max_ps(a, b); }
    static KOVIS_SIMD_INLINE Float min(Float a, Float b) { return _mm_min_ps(a, b); }
    static KOVIS_SIMD_INLINE Float abs(Float a) { return _mm_andnot_ps(_mm_set1_ps(-0.0F), a); }

    static KOVIS_SIMD_INLINE Mask less(Float a, Float b) { return _mm_cmplt_ps(a, b); }
    static KOVIS_SIMD_INLINE Mask lessEqual(Float a, Float b) { return _mm_cmple_ps(a, b); }
    static KOVIS_SIMD_INLINE Mask greater(Float a, Float b) { return _mm_cmpgt_ps(a, b); }
    static KOVIS_SIMD_INLINE Mask greaterEqual(Float a, Float b) { return _mm_cmpge_ps(a, b); }
    static KOVIS_SIMD_INLINE Mask equal(Float a, Float b) { return _mm_cmpeq_ps(a, b); }
    static KOVIS_SIMD_INLINE Mask both(Mask a, Mask b) { return _mm_and_ps(a, b); }
    static KOVIS_SIMD_INLINE Mask either(Mask a, Mask b) { return _mm_or_ps(a, b); }
    /// a where the mask is set, b elsewhere.
    static KOVIS_SIMD_INLINE Float select(Mask mask, Float a, Float b)
    {
        return _mm_or_ps(_mm_and_ps(mask, a), _mm_andnot_ps(mask, b));
    }

    /// floor by adding and taking away 2 to the power 23 with the sign of q: exact below that magnitude.
    static KOVIS_SIMD_INLINE Float floor(Float q)
    {
        const Float s = _mm_or_ps(_mm_and_ps(q, _mm_set1_ps(-0.0F)), _mm_set1_ps(8388608.0F));
        const Float t = _mm_sub_ps(_mm_add_ps(q, s), s);
        return _mm_add_ps(t, _mm_and_ps(_mm_cmplt_ps(q, t), _mm_set1_ps(-1.0F)));
    }

    /// ceil by the same trick; for magnitudes below 2 to the power 22.
    static KOVIS_SIMD_INLINE Float ceil(Float q)
    {
        const Float s = _mm_set1_ps(12582912.0F);
        const Float t = _mm_sub_ps(_mm_add_ps(q, s), s);
        return _mm_add_ps(t, _mm_and_ps(_mm_cmplt_ps(t, q), _mm_set1_ps(1.0F)));
    }

    /// Toward zero; a lane out of range gives the least int.
    static KOVIS_SIMD_INLINE Int truncate(Float a) { return _mm_cvttps_epi32(a); }
    static KOVIS_SIMD_INLINE Float toFloat(Int a) { return _mm_cvtepi32_ps(a); }

    static KOVIS_SIMD_INLINE Float bitAnd(Float a, Float b) { return _mm_and_ps(a, b); }
    static KOVIS_SIMD_INLINE Float bitOr(Float a, Float b) { return _mm_or_ps(a, b); }
    static KOVIS_SIMD_INLINE Float bitXor(Float a, Float b) { return _mm_xor_ps(a, b); }
    /// a where the mask is set, 0 elsewhere.
    static KOVIS_SIMD_INLINE Float keep(Mask mask, Float a) { return _mm_and_ps(mask, a); }

    // The parts of the table power that are integer work or table access.

    /// A positive float as m * 2^e, the mantissa in the range of the table search.
    static KOVIS_SIMD_INLINE void splitMantissa(Float a, Float& m, Float& e)
    {
        Int mantissa;
        Int exponent;
        lanes128::splitMantissa(_mm_castps_si128(a), mantissa, exponent);
        m = _mm_castsi128_ps(mantissa);
        e = toFloat(exponent);
    }

    /// What the tables hold at the index i of a mantissa: A[i], B[i / 2], Ainv[i] and i / 16. As the thresholds descend, the
    /// index is the number of those that the mantissa does not exceed. A row is read by one load, and the rows of four lanes are
    /// transposed.
    static KOVIS_SIMD_INLINE void searchTables(Float m, Float& a, Float& b, Float& aInverse, Float& sixteenths)
    {
        Int row = _mm_setzero_si128();
        KOVIS_UNROLL
        for (unsigned long i = 3; i < 16; i += 2)
        {
            row = _mm_sub_epi32(row, _mm_castps_si128(_mm_cmple_ps(m, _mm_set1_ps(detail::A[i]))));
        }
        const Float row0 = _mm_load_ps(&detail::g_powReductionRows[_mm_extract_epi16(row, 0)].m_a);
        const Float row1 = _mm_load_ps(&detail::g_powReductionRows[_mm_extract_epi16(row, 2)].m_a);
        const Float row2 = _mm_load_ps(&detail::g_powReductionRows[_mm_extract_epi16(row, 4)].m_a);
        const Float row3 = _mm_load_ps(&detail::g_powReductionRows[_mm_extract_epi16(row, 6)].m_a);
        const Float ab01 = _mm_unpacklo_ps(row0, row1);
        const Float ab23 = _mm_unpacklo_ps(row2, row3);
        const Float rest01 = _mm_unpackhi_ps(row0, row1);
        const Float rest23 = _mm_unpackhi_ps(row2, row3);
        a = _mm_movelh_ps(ab01, ab23);
        b = _mm_movehl_ps(ab23, ab01);
        aInverse = _mm_movelh_ps(rest01, rest23);
        sixteenths = _mm_movehl_ps(rest23, rest01);
    }

    /// Of 2^(k / 16), k a whole number: an entry of A, and the power of 2, its exponent limited to -126 to 127.
    static KOVIS_SIMD_INLINE void splitSixteenths(Float k, Float& tablePart, Float& scale)
    {
        const Int ints = truncate(k);
        const Int whole = lanes128::wholePart(ints);
        tablePart = lanes128::tablePart(whole, ints);
        const Int least = _mm_set1_epi32(16);
        const Int greatest = _mm_set1_epi32(16 * 254);
        const Int tooLow = _mm_cmpgt_epi32(least, whole);
        const Int tooHigh = _mm_cmpgt_epi32(whole, greatest);
        const Int inside = _mm_andnot_si128(tooHigh, _mm_andnot_si128(tooLow, whole));
        const Int limited = _mm_or_si128(inside, _mm_or_si128(_mm_and_si128(tooLow, least), _mm_and_si128(tooHigh, greatest)));
        scale = _mm_castsi128_ps(_mm_slli_epi32(limited, 19));
    }

    static KOVIS_SIMD_INLINE Int loadRaw(const void* from) { return _mm_loadu_si128(static_cast<const __m128i*>(from)); }
    static KOVIS_SIMD_INLINE void storeRaw(void* to, Int value) { _mm_storeu_si128(static_cast<__m128i*>(to), value); }

    static KOVIS_SIMD_INLINE IntBlock loadInts(const unsigned char* from)
    {
        const Int zero = _mm_setzero_si128();
        const Int bytes = loadRaw(from);
        const Int low = _mm_unpacklo_epi8(bytes, zero);
        const Int high = _mm_unpackhi_epi8(bytes, zero);
        return {{_mm_unpacklo_epi16(low, zero), _mm_unpackhi_epi16(low, zero), _mm_unpacklo_epi16(high, zero),
                 _mm_unpackhi_epi16(high, zero)}};
    }
    static KOVIS_SIMD_INLINE IntBlock loadInts(const signed char* from)
    {
        // Each byte goes to the top of its 32-bit lane and is shifted down with its sign.
        const Int bytes = loadRaw(from);
        const Int low = _mm_unpacklo_epi8(bytes, bytes);
        const Int high = _mm_unpackhi_epi8(bytes, bytes);
        return {{_mm_srai_epi32(_mm_unpacklo_epi16(low, low), 24), _mm_srai_epi32(_mm_unpackhi_epi16(low, low), 24),
                 _mm_srai_epi32(_mm_unpacklo_epi16(high, high), 24), _mm_srai_epi32(_mm_unpackhi_epi16(high, high), 24)}};
    }
    static KOVIS_SIMD_INLINE IntBlock loadInts(const unsigned short* from)
    {
        const Int zero = _mm_setzero_si128();
        const Int low = loadRaw(from);
        const Int high = loadRaw(from + 8);
        return {{_mm_unpacklo_epi16(low, zero), _mm_unpackhi_epi16(low, zero), _mm_unpacklo_epi16(high, zero),
                 _mm_unpackhi_epi16(high, zero)}};
    }
    static KOVIS_SIMD_INLINE IntBlock loadInts(const short* from)
    {
        const Int low = loadRaw(from);
        const Int high = loadRaw(from + 8);
        return {{_mm_srai_epi32(_mm_unpacklo_epi16(low, low), 16), _mm_srai_epi32(_mm_unpackhi_epi16(low, low), 16),
                 _mm_srai_epi32(_mm_unpacklo_epi16(high, high), 16), _mm_srai_epi32(_mm_unpackhi_epi16(high, high), 16)}};
    }
    static KOVIS_SIMD_INLINE IntBlock loadInts(const int* from)
    {
        return {{loadRaw(from), loadRaw(from + 4), loadRaw(from + 8), loadRaw(from + 12)}};
    }
    /// Saturated to the signed range.
    static KOVIS_SIMD_INLINE IntBlock loadInts(const unsigned int* from)
    {
        return {{saturateSigned(loadRaw(from)), saturateSigned(loadRaw(from + 4)), saturateSigned(loadRaw(from + 8)),
                 saturateSigned(loadRaw(from + 12))}};
    }

    static KOVIS_SIMD_INLINE Block load(const float* from)
    {
        return {{_mm_loadu_ps(from), _mm_loadu_ps(from + 4), _mm_loadu_ps(from + 8), _mm_loadu_ps(from + 12)}};
    }
    static KOVIS_SIMD_INLINE Block load(const unsigned int* from)
    {
        return {{toFloatUnsigned(loadRaw(from)), toFloatUnsigned(loadRaw(from + 4)), toFloatUnsigned(loadRaw(from + 8)),
                 toFloatUnsigned(loadRaw(from + 12))}};
    }
    template <class T>
    static KOVIS_SIMD_INLINE Block load(const T* from)
    {
        const IntBlock ints = loadInts(from);
        return {
            {toFloat(ints.m_register[0]), toFloat(ints.m_register[1]), toFloat(ints.m_register[2]), toFloat(ints.m_register[3])}};
    }

    static KOVIS_SIMD_INLINE void store(float* to, const Block& block)
    {
        KOVIS_UNROLL
        for (unsigned long k = 0; k < s_nbRegisters; ++k)
        {
            _mm_storeu_ps(to + k * s_nbLanes, block.m_register[k]);
        }
    }

    // The stores of integers saturate to the target's range.

    static KOVIS_SIMD_INLINE void storeInts(signed char* to, const IntBlock& block, const Limits&)
    {
        storeRaw(to, _mm_packs_epi16(_mm_packs_epi32(block.m_register[0], block.m_register[1]),
                                     _mm_packs_epi32(block.m_register[2], block.m_register[3])));
    }
    static KOVIS_SIMD_INLINE void storeInts(unsigned char* to, const IntBlock& block, const Limits&)
    {
        storeRaw(to, _mm_packus_epi16(_mm_packs_epi32(block.m_register[0], block.m_register[1]),
                                      _mm_packs_epi32(block.m_register[2], block.m_register[3])));
    }
    static KOVIS_SIMD_INLINE void storeInts(short* to, const IntBlock& block, const Limits&)
    {
        storeRaw(to, _mm_packs_epi32(block.m_register[0], block.m_register[1]));
        storeRaw(to + 8, _mm_packs_epi32(block.m_register[2], block.m_register[3]));
    }
    static KOVIS_SIMD_INLINE void storeInts(unsigned short* to, const IntBlock& block, const Limits&)
    {
        storeRaw(to, packUnsigned16(block.m_register[0], block.m_register[1]));
        storeRaw(to + 8, packUnsigned16(block.m_register[2], block.m_register[3]));
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
            storeRaw(to + k * s_nbLanes, clearNegative(block.m_register[k]));
        }
    }

    /// Limits, then truncates toward zero; a NaN becomes the greatest value. The limits of 8 and 16 bits are exact in float, so
    /// that limiting there gives what it gives in double; those of 32 bits need double.
    template <class T>
    static KOVIS_SIMD_INLINE void storeTruncated(T* to, const Block& block, const Limits& limits)
    {
        IntBlock ints;
        KOVIS_UNROLL
        for (unsigned long k = 0; k < s_nbRegisters; ++k)
        {
            ints.m_register[k] = truncate(max(min(block.m_register[k], limits.m_maxFloat), limits.m_minFloat));
        }
        storeInts(to, ints, limits);
    }
    static KOVIS_SIMD_INLINE void storeTruncated(int* to, const Block& block, const Limits& limits)
    {
        KOVIS_UNROLL
        for (unsigned long k = 0; k < s_nbRegisters; ++k)
        {
            const Float t = block.m_register[k];
            const Int low = _mm_cvttpd_epi32(clamp(_mm_cvtps_pd(t), limits));
            const Int high = _mm_cvttpd_epi32(clamp(_mm_cvtps_pd(_mm_movehl_ps(t, t)), limits));
            storeRaw(to + k * s_nbLanes, _mm_unpacklo_epi64(low, high));
        }
    }
    static KOVIS_SIMD_INLINE void storeTruncated(unsigned int* to, const Block& block, const Limits& limits)
    {
        KOVIS_UNROLL
        for (unsigned long k = 0; k < s_nbRegisters; ++k)
        {
            const Float t = block.m_register[k];
            const Int low = truncateUnsigned(clamp(_mm_cvtps_pd(t), limits));
            const Int high = truncateUnsigned(clamp(_mm_cvtps_pd(_mm_movehl_ps(t, t)), limits));
            storeRaw(to + k * s_nbLanes, _mm_unpacklo_epi64(low, high));
        }
    }

    template <class T>
    static KOVIS_SIMD_INLINE void copy(const T* from, T* to)
    {
        constexpr unsigned long step = sizeof(Int) / sizeof(T);
        KOVIS_UNROLL
        for (unsigned long i = 0; i < s_blockLength; i += step)
        {
            storeRaw(to + i, loadRaw(from + i));
        }
    }

private:
    /// A test that fails for a NaN selects the greatest value, as the second operand of the minimum.
    static KOVIS_SIMD_INLINE __m128d clamp(__m128d t, const Limits& limits)
    {
        return _mm_max_pd(_mm_min_pd(t, limits.m_max), limits.m_min);
    }

    /// Two doubles in 0 to 4294967295 to integers in the two low lanes; the conversion itself is signed.
    static KOVIS_SIMD_INLINE Int truncateUnsigned(__m128d t)
    {
        const __m128d half = _mm_set1_pd(2147483648.0);
        const __m128d upper = _mm_cmpge_pd(t, half);
        const Int truncated = _mm_cvttpd_epi32(_mm_sub_pd(t, _mm_and_pd(upper, half)));
        const Int upperLanes = _mm_shuffle_epi32(_mm_castpd_si128(upper), _MM_SHUFFLE(3, 3, 2, 0));
        const Int added =
            _mm_and_si128(upperLanes, _mm_set_epi32(0, 0, static_cast<int>(0x80000000U), static_cast<int>(0x80000000U)));
        return _mm_add_epi32(truncated, added);
    }

    /// The halves convert exactly, so that the one rounding is that of the sum.
    static KOVIS_SIMD_INLINE Float toFloatUnsigned(Int a)
    {
        const Float high = _mm_cvtepi32_ps(_mm_srli_epi32(a, 16));
        const Float low = _mm_cvtepi32_ps(_mm_and_si128(a, _mm_set1_epi32(0xFFFF)));
        return _mm_add_ps(_mm_mul_ps(high, _mm_set1_ps(65536.0F)), low);
    }

    static KOVIS_SIMD_INLINE Int saturateSigned(Int a)
    {
        const Int above = _mm_srai_epi32(a, 31);
        return _mm_or_si128(_mm_andnot_si128(above, a), _mm_srli_epi32(above, 1));
    }

    static KOVIS_SIMD_INLINE Int clearNegative(Int a) { return _mm_andnot_si128(_mm_srai_epi32(a, 31), a); }

    /// There is only a signed pack: shift the range down by half of it, pack, shift back.
    static KOVIS_SIMD_INLINE Int packUnsigned16(Int a, Int b)
    {
        const Int half = _mm_set1_epi32(32768);
        const Int packed = _mm_packs_epi32(_mm_sub_epi32(clearNegative(a), half), _mm_sub_epi32(clearNegative(b), half));
        return _mm_xor_si128(packed, _mm_set1_epi16(static_cast<short>(-32768)));
    }
};
} // namespace kovis::simd::sse2
