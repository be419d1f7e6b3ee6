#pragma once

// AVX: four registers of eight float lanes. There is no 256-bit integer arithmetic, so float planes are all it serves.

namespace kovis::simd::avx
{
struct Register
{
    using Float = __m256;
    using Mask = __m256;
    using Int = __m256i;

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

    /// Toward zero; a lane out of range gives the least int.
    static KOVIS_SIMD_INLINE Int truncate(Float a) { return _mm256_cvttps_epi32(a); }
    static KOVIS_SIMD_INLINE Float toFloat(Int a) { return _mm256_cvtepi32_ps(a); }

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
};
} // namespace kovis::simd::avx
