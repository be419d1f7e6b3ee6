#pragma once

#include "KOVIS/KOVISSimd/Lanes128.h"

// AVX: four registers of eight float lanes. There is no 256-bit integer arithmetic, so float planes are all it serves.

namespace kovis::simd::avx
{
struct Register
{
    using Float = __m256;
    using Mask = __m256;
    using Int = __m256i;

    static constexpr eInstructionSet::domain s_registerSet = eInstructionSet::eIS_AVX;
    static constexpr eInstructionSet::domain s_arithmeticSet = eInstructionSet::eIS_AVX;

    static constexpr unsigned long s_nbLanes = 8;
    static constexpr unsigned long s_nbRegisters = 4;
    static constexpr unsigned long s_blockLength = s_nbLanes * s_nbRegisters;

    /// The pixels of one block as floats.
    struct Block
    {
        Float m_register[s_nbRegisters];
    };

    /// Least and greatest value of a pixel type, read once before a loop. The float pair is exact for 8 and 16 bits only.
    struct Limits
    {
        __m256d m_min;
        __m256d m_max;
        Float m_minFloat;
        Float m_maxFloat;
    };

    template <class T>
    static KOVIS_SIMD_INLINE Limits limits()
    {
        return {_mm256_set1_pd(static_cast<double>(NumericLimits<T>::s_min)),
                _mm256_set1_pd(static_cast<double>(NumericLimits<T>::s_max)),
                _mm256_set1_ps(static_cast<float>(NumericLimits<T>::s_min)),
                _mm256_set1_ps(static_cast<float>(NumericLimits<T>::s_max))};
    }

    static KOVIS_SIMD_INLINE Float broadcast(float value) { return _mm256_set1_ps(value); }

    static KOVIS_SIMD_INLINE Float add(Float a, Float b) { return _mm256_add_ps(a, b); }
    static KOVIS_SIMD_INLINE Float sub(Float a, Float b) { return _mm256_sub_ps(a, b); }
    static KOVIS_SIMD_INLINE Float mul(Float a, Float b) { return _mm256_mul_ps(a, b); }
    static KOVIS_SIMD_INLINE Float div(Float a, Float b) { return _mm256_div_ps(a, b); }
    /// a * b + c, with a rounding after each operation.
    static KOVIS_SIMD_INLINE Float mulAdd(Float a, Float b, Float c) { return _mm256_add_ps(_mm256_mul_ps(a, b), c); }
    /// a * b - c, with a rounding after each operation.
    static KOVIS_SIMD_INLINE Float mulSub(Float a, Float b, Float c) { return _mm256_sub_ps(_mm256_mul_ps(a, b), c); }
    /// c - a * b, with a rounding after each operation.
    static KOVIS_SIMD_INLINE Float negMulAdd(Float a, Float b, Float c) { return _mm256_sub_ps(c, _mm256_mul_ps(a, b)); }
    /// a > b ? a : b, so the second operand when either is a NaN.
    static KOVIS_SIMD_INLINE Float max(Float a, Float b) { return _mm256_max_ps(a, b); }
    static KOVIS_SIMD_INLINE Float min(Float a, Float b) { return _mm256_min_ps(a, b); }
    static KOVIS_SIMD_INLINE Float abs(Float a) { return _mm256_andnot_ps(_mm256_set1_ps(-0.0F), a); }

    static KOVIS_SIMD_INLINE Mask less(Float a, Float b) { return _mm256_cmp_ps(a, b, _CMP_LT_OQ); }
    static KOVIS_SIMD_INLINE Mask lessEqual(Float a, Float b) { return _mm256_cmp_ps(a, b, _CMP_LE_OQ); }
    static KOVIS_SIMD_INLINE Mask greater(Float a, Float b) { return _mm256_cmp_ps(a, b, _CMP_GT_OQ); }
    static KOVIS_SIMD_INLINE Mask greaterEqual(Float a, Float b) { return _mm256_cmp_ps(a, b, _CMP_GE_OQ); }
    static KOVIS_SIMD_INLINE Mask equal(Float a, Float b) { return _mm256_cmp_ps(a, b, _CMP_EQ_OQ); }
    static KOVIS_SIMD_INLINE Mask both(Mask a, Mask b) { return _mm256_and_ps(a, b); }
    static KOVIS_SIMD_INLINE Mask either(Mask a, Mask b) { return _mm256_or_ps(a, b); }
    /// a where the mask is set, b elsewhere. Not a blend: GCC 12 takes one apart into scalars where there is no AVX2.
    static KOVIS_SIMD_INLINE Float select(Mask mask, Float a, Float b)
    {
        return _mm256_or_ps(_mm256_and_ps(mask, a), _mm256_andnot_ps(mask, b));
    }

    /// floor by the round instruction.
    static KOVIS_SIMD_INLINE Float floor(Float q) { return _mm256_floor_ps(q); }
    static KOVIS_SIMD_INLINE Float ceil(Float q) { return _mm256_ceil_ps(q); }

    /// Toward zero; a lane out of range gives the least int.
    static KOVIS_SIMD_INLINE Int truncate(Float a) { return _mm256_cvttps_epi32(a); }
    static KOVIS_SIMD_INLINE Float toFloat(Int a) { return _mm256_cvtepi32_ps(a); }

    static KOVIS_SIMD_INLINE Float bitAnd(Float a, Float b) { return _mm256_and_ps(a, b); }
    static KOVIS_SIMD_INLINE Float bitOr(Float a, Float b) { return _mm256_or_ps(a, b); }
    static KOVIS_SIMD_INLINE Float bitXor(Float a, Float b) { return _mm256_xor_ps(a, b); }
    /// a where the mask is set, 0 elsewhere.
    static KOVIS_SIMD_INLINE Float keep(Mask mask, Float a) { return _mm256_and_ps(mask, a); }

    // The parts of the table power that are integer work or table access. Integers go by halves.

    /// A positive float as m * 2^e, the mantissa in the range of the table search.
    static KOVIS_SIMD_INLINE void splitMantissa(Float a, Float& m, Float& e)
    {
        __m128i lowMantissa;
        __m128i lowExponent;
        lanes128::splitMantissa(_mm_castps_si128(_mm256_castps256_ps128(a)), lowMantissa, lowExponent);
        __m128i highMantissa;
        __m128i highExponent;
        lanes128::splitMantissa(_mm_castps_si128(_mm256_extractf128_ps(a, 1)), highMantissa, highExponent);
        m = _mm256_castsi256_ps(join(lowMantissa, highMantissa));
        e = toFloat(join(lowExponent, highExponent));
    }

    /// What the tables hold at the index i of a mantissa: A[i], B[i / 2], Ainv[i] and i / 16. The search goes by halves, its
    /// masks are the bits of i / 2 - 1, and the tables stand in registers of four entries.
    static KOVIS_SIMD_INLINE void searchTables(Float m, Float& a, Float& b, Float& aInverse, Float& sixteenths)
    {
        const Mask bit2 = lessEqual(m, broadcast(detail::A[9]));
        const Mask bit1 = lessEqual(m, select(bit2, broadcast(detail::A[13]), broadcast(detail::A[5])));
        const Mask bit0 = lessEqual(m, lookUp4(detail::g_powThresholds, indexOfTwo(bit2, bit1)));
        const Int index = indexOfTwo(bit1, bit0);
        a = lookUp8(detail::g_powA, bit2, index);
        b = lookUp8(detail::g_powB, bit2, index);
        aInverse = lookUp8(detail::g_powAInverse, bit2, index);
        sixteenths = lookUp8(detail::g_powSixteenths, bit2, index);
    }

    /// Of 2^(k / 16), k a whole number: an entry of A, and the power of 2, its exponent limited to -126 to 127.
    static KOVIS_SIMD_INLINE void splitSixteenths(Float k, Float& tablePart, Float& scale)
    {
        const Int ints = truncate(k);
        const __m128i low = _mm256_castsi256_si128(ints);
        const __m128i high = _mm256_extractf128_si256(ints, 1);
        const __m128i lowWhole = lanes128::wholePart(low);
        const __m128i highWhole = lanes128::wholePart(high);
        tablePart = _mm256_insertf128_ps(_mm256_castps128_ps256(lanes128::tablePart(lowWhole, low)),
                                         lanes128::tablePart(highWhole, high), 1);
        scale = _mm256_castsi256_ps(join(limitedScale(lowWhole), limitedScale(highWhole)));
    }

    static KOVIS_SIMD_INLINE Int loadRaw(const void* from) { return _mm256_loadu_si256(static_cast<const __m256i*>(from)); }
    static KOVIS_SIMD_INLINE void storeRaw(void* to, Int value) { _mm256_storeu_si256(static_cast<__m256i*>(to), value); }

    static KOVIS_SIMD_INLINE Block load(const float* from)
    {
        return {{_mm256_loadu_ps(from), _mm256_loadu_ps(from + 8), _mm256_loadu_ps(from + 16), _mm256_loadu_ps(from + 24)}};
    }

    static KOVIS_SIMD_INLINE void store(float* to, const Block& block)
    {
        KOVIS_UNROLL
        for (unsigned long k = 0; k < s_nbRegisters; ++k)
        {
            _mm256_storeu_ps(to + k * s_nbLanes, block.m_register[k]);
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
    static KOVIS_SIMD_INLINE Int join(__m128i low, __m128i high)
    {
        return _mm256_insertf128_si256(_mm256_castsi128_si256(low), high, 1);
    }

    /// 2 * bit1 + bit0.
    static KOVIS_SIMD_INLINE Int indexOfTwo(Mask bit1, Mask bit0)
    {
        const Float two = _mm256_castsi256_ps(_mm256_set1_epi32(2));
        const Float one = _mm256_castsi256_ps(_mm256_set1_epi32(1));
        return _mm256_castps_si256(bitOr(keep(bit1, two), keep(bit0, one)));
    }

protected:
    /// The entry of four that the low two bits of each lane name.
    static KOVIS_SIMD_INLINE Float lookUp4(const float* table, Int index)
    {
        return _mm256_permutevar_ps(_mm256_broadcast_ps(reinterpret_cast<const __m128*>(table)), index);
    }

private:
    /// Entry 4 * bit2 + index of eight.
    static KOVIS_SIMD_INLINE Float lookUp8(const float* table, Mask bit2, Int index)
    {
        return select(bit2, lookUp4(table + 4, index), lookUp4(table, index));
    }

    /// 2^j of 16 * (j + 127).
    static KOVIS_SIMD_INLINE __m128i limitedScale(__m128i whole)
    {
        return _mm_slli_epi32(_mm_min_epi32(_mm_max_epi32(whole, _mm_set1_epi32(16)), _mm_set1_epi32(16 * 254)), 19);
    }
};
} // namespace kovis::simd::avx
