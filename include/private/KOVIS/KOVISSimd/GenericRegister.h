#pragma once

// Plain x86-64: one lane, one register. Masks are bools, so that a select is a real branch.

namespace kovis::simd::generic
{
struct Register
{
    using Float = float;
    using Mask = bool;
    using Int = int;

    static constexpr unsigned long s_nbLanes = 1;
    static constexpr unsigned long s_nbRegisters = 1;
    static constexpr unsigned long s_blockLength = s_nbLanes * s_nbRegisters;

    /// The pixels of one block as floats.
    struct Block
    {
        Float m_register[s_nbRegisters];
    };

    /// The pixels of one block as integers; wide enough for every pixel type.
    struct IntBlock
    {
        long long m_register[s_nbRegisters];
    };

    /// Least and greatest value of a pixel type, read once before a loop.
    struct Limits
    {
        double m_min;
        double m_max;
    };

    template <class T>
    static KOVIS_SIMD_INLINE Limits limits()
    {
        return {static_cast<double>(NumericLimits<T>::s_min), static_cast<double>(NumericLimits<T>::s_max)};
    }

    static KOVIS_SIMD_INLINE Float broadcast(float value) { return value; }

    static KOVIS_SIMD_INLINE Float add(Float a, Float b) { return a + b; }
    static KOVIS_SIMD_INLINE Float sub(Float a, Float b) { return a - b; }
    static KOVIS_SIMD_INLINE Float mul(Float a, Float b) { return a * b; }
    static KOVIS_SIMD_INLINE Float div(Float a, Float b) { return a / b; }
    /// a * b + c, with a rounding after each operation.
    static KOVIS_SIMD_INLINE Float mulAdd(Float a, Float b, Float c) { return a * b + c; }
    /// a * b - c, with a rounding after each operation.
    static KOVIS_SIMD_INLINE Float mulSub(Float a, Float b, Float c) { return a * b - c; }
    /// c - a * b, with a rounding after each operation.
    static KOVIS_SIMD_INLINE Float negMulAdd(Float a, Float b, Float c) { return c - a * b; }
    /// The second operand when either is a NaN.
    static KOVIS_SIMD_INLINE Float max(Float a, Float b) { return a > b ? a : b; }
    static KOVIS_SIMD_INLINE Float min(Float a, Float b) { return a < b ? a : b; }
    static KOVIS_SIMD_INLINE Float abs(Float a) { return __builtin_fabsf(a); }

    static KOVIS_SIMD_INLINE Mask less(Float a, Float b) { return a < b; }
    static KOVIS_SIMD_INLINE Mask lessEqual(Float a, Float b) { return a <= b; }
    static KOVIS_SIMD_INLINE Mask greater(Float a, Float b) { return a > b; }
    static KOVIS_SIMD_INLINE Mask greaterEqual(Float a, Float b) { return a >= b; }
    static KOVIS_SIMD_INLINE Mask equal(Float a, Float b) { return a == b; }
    static KOVIS_SIMD_INLINE Mask both(Mask a, Mask b) { return a && b; }
    static KOVIS_SIMD_INLINE Mask either(Mask a, Mask b) { return a || b; }
    /// a where the mask is set, b elsewhere.
    static KOVIS_SIMD_INLINE Float select(Mask mask, Float a, Float b) { return mask ? a : b; }

    /// floor by adding and taking away 2 to the power 23 with the sign of q: exact below that magnitude.
    static KOVIS_SIMD_INLINE Float floor(Float q)
    {
        const float s = __builtin_copysignf(8388608.0F, q);
        const float t = (q + s) - s;
        return t + (q < t ? -1.0F : 0.0F);
    }

    /// Toward zero. The instruction itself: a value out of range gives the least int.
    static KOVIS_SIMD_INLINE Int truncate(Float a) { return _mm_cvttss_si32(_mm_set_ss(a)); }
    static KOVIS_SIMD_INLINE Float toFloat(Int a) { return static_cast<float>(a); }

    template <class T>
    static KOVIS_SIMD_INLINE Block load(const T* from)
    {
        return {{static_cast<float>(*from)}};
    }

    static KOVIS_SIMD_INLINE void store(float* to, const Block& block) { *to = block.m_register[0]; }

    /// Limits, then truncates toward zero; a NaN becomes the greatest value.
    template <class T>
    static KOVIS_SIMD_INLINE void storeTruncated(T* to, const Block& block, const Limits& limits)
    {
        double t = static_cast<double>(block.m_register[0]);
        t = t < limits.m_max ? t : limits.m_max;
        t = t > limits.m_min ? t : limits.m_min;
        *to = static_cast<T>(t);
    }

    template <class T>
    static KOVIS_SIMD_INLINE IntBlock loadInts(const T* from)
    {
        return {{static_cast<long long>(*from)}};
    }

    template <class T>
    static KOVIS_SIMD_INLINE void storeInts(T* to, const IntBlock& block, const Limits& limits)
    {
        long long t = block.m_register[0];
        t = t < static_cast<long long>(limits.m_max) ? t : static_cast<long long>(limits.m_max);
        t = t > static_cast<long long>(limits.m_min) ? t : static_cast<long long>(limits.m_min);
        *to = static_cast<T>(t);
    }

    template <class T>
    static KOVIS_SIMD_INLINE void copy(const T* from, T* to)
    {
        *to = *from;
    }
};
} // namespace kovis::simd::generic
