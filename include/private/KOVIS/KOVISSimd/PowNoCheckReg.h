#pragma once

#include "KOVIS/KOVISSimd/PowTables.h"

// Included inside a target region, after a register header.

namespace kovis::simd
{
namespace detail
{
/// x to the exponent y, lane by lane, by tables and polynomials to the base 2 in float. RegISA gives the registers, ArithISA
/// the arithmetic: every multiply-add of a form with FMA3 is fused, and nothing else differs.
template <eInstructionSet::domain RegISA, eInstructionSet::domain ArithISA, class T>
struct PowNoCheckReg;

template <eInstructionSet::domain RegISA, eInstructionSet::domain ArithISA>
struct PowNoCheckReg<RegISA, ArithISA, float>
{
    using Register = typename FormOf<ArithISA, RegISA>::Register;
    using Float = typename Register::Float;
    using Mask = typename Register::Mask;

    /// The exponent, its greatest multiple of 1/16 and the rest, all times 16: made once per kernel call.
    struct Exponent
    {
        float m_value;
        Float m_y;
        Float m_ya;
        Float m_yb;
    };

    static KOVIS_SIMD_INLINE Exponent exponent(float y)
    {
        const Float sixteen = Register::mul(constant(16.0F), constant(y));
        const Float ya = Register::floor(sixteen);
        return {y, sixteen, ya, Register::sub(sixteen, ya)};
    }

    /// N registers in step: the chain of one is long, and the chains of its neighbours fill the gaps. x and result may be one.
    template <unsigned long N>
    static KOVIS_SIMD_INLINE void run(const Float (&x)[N], const Exponent& y, Float (&result)[N])
    {
        Float log2[N];
        Float n[N];
        logarithm(x, log2, n);
        Float sixteenths[N];
        Float rest[N];
        multiply(log2, n, y, sixteenths, rest);
        Float power[N];
        exponential(sixteenths, rest, power);
        KOVIS_UNROLL
        for (unsigned long k = 0; k < N; ++k)
        {
            result[k] = replaceSpecial(x[k], y.m_value, power[k]);
        }
    }

    static KOVIS_SIMD_INLINE Float run(Float x, const Exponent& y)
    {
        const Float alone[1] = {x};
        Float result[1];
        run(alone, y, result);
        return result[0];
    }

private:
    static KOVIS_SIMD_INLINE Float constant(float value) { return Register::broadcast(value); }

    // For an x above 0 and finite. Nothing is checked: another x, or a result that leaves the normal range, gives a wrong number.

    /// The logarithm to the base 2 in two parts: n, a multiple of 1/8, and the small rest.
    template <unsigned long N>
    static KOVIS_SIMD_INLINE void logarithm(const Float (&x)[N], Float (&rest)[N], Float (&n)[N])
    {
        Float v[N];
        KOVIS_UNROLL
        for (unsigned long k = 0; k < N; ++k)
        {
            Float m;
            Float e;
            Register::splitMantissa(Register::abs(x[k]), m, e);
            // A[i] next to m, of which B[i / 2] makes up for the rounding.
            Float a;
            Float b;
            Float aInverse;
            Float sixteenths;
            Register::searchTables(m, a, b, aInverse, sixteenths);
            v[k] = Register::mul(Register::sub(Register::sub(m, a), b), aInverse);
            n[k] = Register::sub(e, sixteenths);
        }
        KOVIS_UNROLL
        for (unsigned long k = 0; k < N; ++k)
        {
            const Float z = Register::mul(v[k], v[k]);
            Float w = Register::mulAdd(constant(-0.166388303F), v[k], constant(0.200377032F));
            w = Register::mulSub(w, v[k], constant(0.250000626F));
            w = Register::mulAdd(w, v[k], constant(0.333333105F));
            w = Register::mul(Register::mul(w, v[k]), z);
            w = Register::negMulAdd(constant(0.5F), z, w);
            const Float log2OfEMinus1 = constant(0.442695051F);
            w = Register::mulAdd(log2OfEMinus1, w, w);
            w = Register::mulAdd(log2OfEMinus1, v[k], w);
            rest[k] = Register::add(w, v[k]);
        }
    }

    /// (n + w) * y: whole sixteenths, and a rest of -1/16 to 0. The factor 16 that y brings is exact for exponents below 2^124,
    /// so that what is rounded is what it would be without it.
    template <unsigned long N>
    static KOVIS_SIMD_INLINE void multiply(const Float (&w)[N], const Float (&n)[N], const Exponent& y, Float (&sixteenths)[N],
                                           Float (&rest)[N])
    {
        KOVIS_UNROLL
        for (unsigned long k = 0; k < N; ++k)
        {
            const Float f = Register::mulAdd(w[k], y.m_y, Register::mul(n[k], y.m_yb));
            const Float fa = Register::floor(f);
            const Float g = Register::mulAdd(n[k], y.m_ya, fa);
            const Float ga = Register::floor(g);
            const Float h = Register::add(Register::sub(f, fa), Register::sub(g, ga));
            const Float ha = Register::ceil(h);
            sixteenths[k] = Register::add(ga, ha);
            rest[k] = Register::mul(Register::sub(h, ha), constant(0.0625F));
        }
    }

    /// 2 to the power of sixteenths / 16 + rest.
    template <unsigned long N>
    static KOVIS_SIMD_INLINE void exponential(const Float (&sixteenths)[N], const Float (&rest)[N], Float (&result)[N])
    {
        KOVIS_UNROLL
        for (unsigned long k = 0; k < N; ++k)
        {
            Float p = Register::mulAdd(constant(0.00941699371F), rest[k], constant(0.0554935634F));
            p = Register::mulAdd(p, rest[k], constant(0.240226284F));
            p = Register::mulAdd(p, rest[k], constant(0.693147182F));
            p = Register::mul(p, rest[k]);
            Float tablePart;
            Float scale;
            Register::splitSixteenths(sixteenths[k], tablePart, scale);
            result[k] = Register::mul(Register::mulAdd(p, tablePart, tablePart), scale);
        }
    }

    /// The special cases laid over r, a later one over an earlier one. The conditions on y alone are one decision for all lanes.
    static KOVIS_SIMD_INLINE Float replaceSpecial(Float x, float y, Float r)
    {
        const Float ax = Register::abs(x);
        const float half = (y - 1.0F) * 0.5F;
        const bool bFinite = __builtin_isfinite(y);
        const bool bInteger = bFinite && y == __builtin_floorf(y);
        const bool bOdd = bFinite && half == __builtin_floorf(half);
        const Float zero = constant(0.0F);
        const Float one = constant(1.0F);
        const Float infinity = constant(__builtin_inff());
        const Float notANumber = constant(floatOfBits(0x7FC00000));
        const Float sign = Register::bitAnd(x, constant(-0.0F));

        const Mask isNegative = Register::less(x, zero);
        r = bInteger ? Register::bitXor(r, Register::keep(isNegative, constant(-0.0F))) : Register::bitOr(r, isNegative);

        const Float overZero = bOdd ? Register::bitOr(infinity, sign) : infinity;
        r = Register::select(Register::equal(x, zero), y == 0.0F ? one : y > 0.0F ? zero : overZero, r);

        if (__builtin_isinf(y))
        {
            const Mask grows = y > 0.0F ? Register::greaterEqual(ax, one) : Register::less(ax, one);
            r = Register::select(Register::equal(x, constant(-1.0F)), one, Register::keep(grows, infinity));
        }

        const Float ofInfinity = y > 0.0F ? infinity : zero;
        r = Register::select(Register::equal(ax, infinity), bOdd ? Register::bitOr(ofInfinity, sign) : ofInfinity, r);

        r = __builtin_isnan(y) ? notANumber : Register::select(Register::equal(x, x), r, notANumber);
        // The tables give 1 for 1 by themselves, as long as 16 * y is finite.
        const bool bTablesGiveOne = __builtin_fabsf(y) < 0x1p124F;
        r = bTablesGiveOne ? r : Register::select(Register::equal(x, one), one, r);
        return y == 0.0F ? one : r;
    }
};
} // namespace detail

/// The power as a form has it: that of the tables in the vector forms.
template <class Register>
struct Power : detail::PowNoCheckReg<Register::s_registerSet, Register::s_arithmeticSet, float>
{
};

/// The standard library's in the generic form.
template <>
struct Power<generic::Register>
{
    struct Exponent
    {
        float m_value;
    };

    static KOVIS_SIMD_INLINE Exponent exponent(float y) { return {y}; }
    static KOVIS_SIMD_INLINE void run(const float (&x)[1], const Exponent& y, float (&result)[1])
    {
        result[0] = __builtin_powf(x[0], y.m_value);
    }
};
} // namespace kovis::simd
