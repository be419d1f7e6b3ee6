#pragma once

#include "KOVIS/KOVISSimd/Avx2Register.h"

// AVX2 with FMA3: a product that feeds straight into a sum is one operation with one rounding.

namespace kovis::simd::fma3_avx2
{
struct Register : avx2::Register
{
    static constexpr eInstructionSet::domain s_arithmeticSet = eInstructionSet::eIS_FMA3;

    /// a * b + c
    static KOVIS_SIMD_INLINE Float mulAdd(Float a, Float b, Float c) { return _mm256_fmadd_ps(a, b, c); }
    /// a * b - c
    static KOVIS_SIMD_INLINE Float mulSub(Float a, Float b, Float c) { return _mm256_fmsub_ps(a, b, c); }
    /// c - a * b
    static KOVIS_SIMD_INLINE Float negMulAdd(Float a, Float b, Float c) { return _mm256_fnmadd_ps(a, b, c); }

    using avx2::Register::load;
    /// Fused as well; the product is exact, so the value is that of AVX2.
    static KOVIS_SIMD_INLINE Block load(const unsigned int* from) { return loadUnsigned<Register>(from); }
};
} // namespace kovis::simd::fma3_avx2
