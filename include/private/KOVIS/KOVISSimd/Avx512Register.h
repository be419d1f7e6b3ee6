#pragma once

// AVX512 (F, BW, DQ, VL): four registers of sixteen float lanes. Sums of products are fused.

namespace kovis::simd::avx512
{
struct Register
{
    using Float = __m512;
    using Mask = __mmask16;
    using Int = __m512i;

    static constexpr unsigned long s_nbLanes = 16;
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

    /// The stores need none.
    struct Limits
    {
    };

    /// For zero-masked intrinsics, which become the plain instructions: the unmasked ones of GCC 12 start from a value that is
    /// not initialised, and warn of it.
    static constexpr Mask s_allLanes = 0xFFFF;

    static KOVIS_SIMD_INLINE Float broadcast(float value) { return _mm512_set1_ps(value); }

    static KOVIS_SIMD_INLINE Float add(Float a, Float b) { return _mm512_add_ps(a, b); }
    static KOVIS_SIMD_INLINE Float sub(Float a, Float b) { return _mm512_sub_ps(a, b); }
    static KOVIS_SIMD_INLINE Float mul(Float a, Float b) { return _mm512_mul_ps(a, b); }
    static KOVIS_SIMD_INLINE Float div(Float a, Float b) { return _mm512_div_ps(a, b); }
    /// a * b + c, with one rounding.
    static KOVIS_SIMD_INLINE Float mulAdd(Float a, Float b, Float c) { return _mm512_fmadd_ps(a, b, c); }
    /// a > b ? a : b, so the second operand when either is a NaN.
    static KOVIS_SIMD_INLINE Float max(Float a, Float b) { return _mm512_maskz_max_ps(s_allLanes, a, b); }
    static KOVIS_SIMD_INLINE Float min(Float a, Float b) { return _mm512_maskz_min_ps(s_allLanes, a, b); }

    static KOVIS_SIMD_INLINE Mask less(Float a, Float b) { return _mm512_cmp_ps_mask(a, b, _CMP_LT_OQ); }
    static KOVIS_SIMD_INLINE Mask greaterEqual(Float a, Float b) { return _mm512_cmp_ps_mask(a, b, _CMP_GE_OQ); }
    /// a where the mask is set, b elsewhere.
    static KOVIS_SIMD_INLINE Float select(Mask mask, Float a, Float b) { return _mm512_mask_blend_ps(mask, b, a); }

    /// Toward zero; a lane out of range gives the least int.
    static KOVIS_SIMD_INLINE Int truncate(Float a) { return _mm512_maskz_cvttps_epi32(s_allLanes, a); }
    /// Toward zero; a lane out of range, or a NaN, gives the greatest unsigned int.
    static KOVIS_SIMD_INLINE Int truncateUnsigned(Float a) { return _mm512_maskz_cvttps_epu32(s_allLanes, a); }
    static KOVIS_SIMD_INLINE Float toFloat(Int a) { return _mm512_maskz_cvtepi32_ps(s_allLanes, a); }

    static KOVIS_SIMD_INLINE Int loadRaw(const void* from) { return _mm512_loadu_si512(from); }
    static KOVIS_SIMD_INLINE void storeRaw(void* to, Int value) { _mm512_storeu_si512(to, value); }

    static KOVIS_SIMD_INLINE IntBlock loadInts(const unsigned char* from)
    {
        return {{_mm512_maskz_cvtepu8_epi32(s_allLanes, loadQuarter(from)),
                 _mm512_maskz_cvtepu8_epi32(s_allLanes, loadQuarter(from + 16)),
                 _mm512_maskz_cvtepu8_epi32(s_allLanes, loadQuarter(from + 32)),
                 _mm512_maskz_cvtepu8_epi32(s_allLanes, loadQuarter(from + 48))}};
    }
    static KOVIS_SIMD_INLINE IntBlock loadInts(const signed char* from)
    {
        return {{_mm512_maskz_cvtepi8_epi32(s_allLanes, loadQuarter(from)),
                 _mm512_maskz_cvtepi8_epi32(s_allLanes, loadQuarter(from + 16)),
                 _mm512_maskz_cvtepi8_epi32(s_allLanes, loadQuarter(from + 32)),
                 _mm512_maskz_cvtepi8_epi32(s_allLanes, loadQuarter(from + 48))}};
    }
    static KOVIS_SIMD_INLINE IntBlock loadInts(const unsigned short* from)
    {
        return {{_mm512_maskz_cvtepu16_epi32(s_allLanes, loadHalf(from)),
                 _mm512_maskz_cvtepu16_epi32(s_allLanes, loadHalf(from + 16)),
                 _mm512_maskz_cvtepu16_epi32(s_allLanes, loadHalf(from + 32)),
                 _mm512_maskz_cvtepu16_epi32(s_allLanes, loadHalf(from + 48))}};
    }
    static KOVIS_SIMD_INLINE IntBlock loadInts(const short* from)
    {
        return {{_mm512_maskz_cvtepi16_epi32(s_allLanes, loadHalf(from)),
                 _mm512_maskz_cvtepi16_epi32(s_allLanes, loadHalf(from + 16)),
                 _mm512_maskz_cvtepi16_epi32(s_allLanes, loadHalf(from + 32)),
                 _mm512_maskz_cvtepi16_epi32(s_allLanes, loadHalf(from + 48))}};
    }
    static KOVIS_SIMD_INLINE IntBlock loadInts(const int* from)
    {
        return {{loadRaw(from), loadRaw(from + 16), loadRaw(from + 32), loadRaw(from + 48)}};
    }

    static KOVIS_SIMD_INLINE Block load(const float* from)
    {
        return {{_mm512_loadu_ps(from), _mm512_loadu_ps(from + 16), _mm512_loadu_ps(from + 32), _mm512_loadu_ps(from + 48)}};
    }
    static KOVIS_SIMD_INLINE Block load(const unsigned int* from)
    {
        return {{_mm512_maskz_cvtepu32_ps(s_allLanes, loadRaw(from)), _mm512_maskz_cvtepu32_ps(s_allLanes, loadRaw(from + 16)),
                 _mm512_maskz_cvtepu32_ps(s_allLanes, loadRaw(from + 32)),
                 _mm512_maskz_cvtepu32_ps(s_allLanes, loadRaw(from + 48))}};
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
            _mm512_storeu_ps(to + k * s_nbLanes, block.m_register[k]);
        }
    }

    // The stores of signed integers saturate to the target's range.

    static KOVIS_SIMD_INLINE void storeInts(signed char* to, const IntBlock& block, const Limits&)
    {
        KOVIS_UNROLL
        for (unsigned long k = 0; k < s_nbRegisters; ++k)
        {
            storeQuarter(to + k * s_nbLanes, _mm512_maskz_cvtsepi32_epi8(s_allLanes, block.m_register[k]));
        }
    }
    static KOVIS_SIMD_INLINE void storeInts(unsigned char* to, const IntBlock& block, const Limits&)
    {
        KOVIS_UNROLL
        for (unsigned long k = 0; k < s_nbRegisters; ++k)
        {
            storeQuarter(to + k * s_nbLanes, _mm512_maskz_cvtusepi32_epi8(s_allLanes, clearNegative(block.m_register[k])));
        }
    }
    static KOVIS_SIMD_INLINE void storeInts(short* to, const IntBlock& block, const Limits&)
    {
        KOVIS_UNROLL
        for (unsigned long k = 0; k < s_nbRegisters; ++k)
        {
            storeHalf(to + k * s_nbLanes, _mm512_maskz_cvtsepi32_epi16(s_allLanes, block.m_register[k]));
        }
    }
    static KOVIS_SIMD_INLINE void storeInts(unsigned short* to, const IntBlock& block, const Limits&)
    {
        KOVIS_UNROLL
        for (unsigned long k = 0; k < s_nbRegisters; ++k)
        {
            storeHalf(to + k * s_nbLanes, _mm512_maskz_cvtusepi32_epi16(s_allLanes, clearNegative(block.m_register[k])));
        }
    }
    static KOVIS_SIMD_INLINE void storeInts(int* to, const IntBlock& block, const Limits&)
    {
        KOVIS_UNROLL
        for (unsigned long k = 0; k < s_nbRegisters; ++k)
        {
            storeRaw(to + k * s_nbLanes, block.m_register[k]);
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
    static KOVIS_SIMD_INLINE __m128i loadQuarter(const void* from) { return _mm_loadu_si128(static_cast<const __m128i*>(from)); }
    static KOVIS_SIMD_INLINE __m256i loadHalf(const void* from) { return _mm256_loadu_si256(static_cast<const __m256i*>(from)); }
    static KOVIS_SIMD_INLINE void storeQuarter(void* to, __m128i value) { _mm_storeu_si128(static_cast<__m128i*>(to), value); }
    static KOVIS_SIMD_INLINE void storeHalf(void* to, __m256i value) { _mm256_storeu_si256(static_cast<__m256i*>(to), value); }

    static KOVIS_SIMD_INLINE Int clearNegative(Int a) { return _mm512_maskz_max_epi32(s_allLanes, a, _mm512_setzero_si512()); }
};
} // namespace kovis::simd::avx512
