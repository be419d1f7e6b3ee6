#pragma once

#include "KOVISIPL/KOVISIPLColor/Processor/Kernel/roundHalfAway.h"
#include "KOVISIPL/KOVISIPLColor/Processor/LightnessImg/Kernel/PixelBlock.h"

// Included inside a target region, after a register header and the LightnessLanes of its form.

namespace kovis::imaproc::color::kernel
{
/// A block of results into an integer plane: rounded half away from zero and truncated, without limits of its own. What is out of
/// range becomes what the form's conversion makes of it; of 8 and 16 bits nothing is.
template <class Register, class T>
struct StoreLightness
{
    static KOVIS_SIMD_INLINE void run(T* to, const typename Register::Block& block)
    {
        using Lanes = LightnessLanes<Register>;
        const typename Register::Block rounded = roundHalfAway<Register>(block);
        typename Register::IntBlock ints;
        KOVIS_UNROLL
        for (unsigned long k = 0; k < Register::s_nbRegisters; ++k)
        {
            ints.m_register[k] = Lanes::truncate(rounded.m_register[k], PixelTag<T>());
        }
        Lanes::storeInts(to, ints);
    }
};

template <class Register>
struct StoreLightness<Register, float>
{
    static KOVIS_SIMD_INLINE void run(float* to, const typename Register::Block& block) { Register::store(to, block); }
};

/// The mean of all channels: their sum in channel order, divided by their number.
template <class Register, class T>
struct AverageFormula
{
    unsigned long m_nbChannels;
    typename Register::Float m_divisor;

    KOVIS_SIMD_INLINE explicit AverageFormula(unsigned long nbChannels)
        : m_nbChannels(nbChannels), m_divisor(Register::broadcast(static_cast<float>(nbChannels)))
    {
    }

    KOVIS_SIMD_INLINE typename Register::Block operator()(const T* const* in, unsigned long i) const
    {
        typename Register::Block sum;
        KOVIS_UNROLL
        for (unsigned long k = 0; k < Register::s_nbRegisters; ++k)
        {
            sum.m_register[k] = Register::broadcast(0.0F);
        }
        for (unsigned long c = 0; c < m_nbChannels; ++c)
        {
            const typename Register::Block pixels = Register::load(in[c] + i);
            KOVIS_UNROLL
            for (unsigned long k = 0; k < Register::s_nbRegisters; ++k)
            {
                sum.m_register[k] = Register::add(sum.m_register[k], pixels.m_register[k]);
            }
        }
        KOVIS_UNROLL
        for (unsigned long k = 0; k < Register::s_nbRegisters; ++k)
        {
            sum.m_register[k] = Register::div(sum.m_register[k], m_divisor);
        }
        return sum;
    }
};

/// Half the sum of the least and the greatest channel, which are found among the pixels themselves; a NaN is passed over.
template <class Register, class T>
struct MidRangeFormula
{
    using Pixels = PixelBlock<Register, T>;

    unsigned long m_nbChannels;
    Pixels m_greatestValue;
    Pixels m_leastValue;

    KOVIS_SIMD_INLINE explicit MidRangeFormula(unsigned long nbChannels)
        : m_nbChannels(nbChannels),
          m_greatestValue(Pixels::broadcast(NumericLimits<T>::s_max)),
          m_leastValue(Pixels::broadcast(NumericLimits<T>::s_min))
    {
    }

    KOVIS_SIMD_INLINE typename Register::Block operator()(const T* const* in, unsigned long i) const
    {
        Pixels low = m_greatestValue;
        Pixels high = m_leastValue;
        for (unsigned long c = 0; c < m_nbChannels; ++c)
        {
            const Pixels pixels = Pixels::load(in[c] + i);
            low.lowerTo(pixels);
            high.raiseTo(pixels);
        }
        typename Register::Block middle = low.toFloat();
        const typename Register::Block highFloat = high.toFloat();
        KOVIS_UNROLL
        for (unsigned long k = 0; k < Register::s_nbRegisters; ++k)
        {
            middle.m_register[k] =
                Register::mul(Register::add(middle.m_register[k], highFloat.m_register[k]), Register::broadcast(0.5F));
        }
        return middle;
    }
};

/// Whether the sum of the first two weighted channels feeds on a product in one operation too, where the form fuses at all.
template <class T>
struct LuminositySum
{
    template <class Register>
    static KOVIS_SIMD_INLINE typename Register::Float run(typename Register::Float red, typename Register::Float redWeight,
                                                          typename Register::Float green, typename Register::Float greenWeight)
    {
        return Register::add(Register::mul(red, redWeight), Register::mul(green, greenWeight));
    }
};
template <>
struct LuminositySum<float>
{
    template <class Register>
    static KOVIS_SIMD_INLINE typename Register::Float run(typename Register::Float red, typename Register::Float redWeight,
                                                          typename Register::Float green, typename Register::Float greenWeight)
    {
        return Register::mulAdd(red, redWeight, Register::mul(green, greenWeight));
    }
};

/// The weighted sum of channels 0, 1 and 2.
template <class Register, class T>
struct LuminosityFormula
{
    typename Register::Float m_red = Register::broadcast(0.21F);
    typename Register::Float m_green = Register::broadcast(0.72F);
    typename Register::Float m_blue = Register::broadcast(0.07F);

    KOVIS_SIMD_INLINE explicit LuminosityFormula(unsigned long) {}

    KOVIS_SIMD_INLINE typename Register::Block operator()(const T* const* in, unsigned long i) const
    {
        const typename Register::Block red = Register::load(in[0] + i);
        const typename Register::Block green = Register::load(in[1] + i);
        const typename Register::Block blue = Register::load(in[2] + i);
        typename Register::Block sum;
        KOVIS_UNROLL
        for (unsigned long k = 0; k < Register::s_nbRegisters; ++k)
        {
            const typename Register::Float redGreen =
                LuminositySum<T>::template run<Register>(red.m_register[k], m_red, green.m_register[k], m_green);
            sum.m_register[k] = Register::mulAdd(blue.m_register[k], m_blue, redGreen);
        }
        return sum;
    }
};

template <class Register, class T, template <class, class> class TFormula>
KOVIS_SIMD_INLINE void runLightness(unsigned long nbChannels, unsigned long count, const T* const* in, T* out)
{
    const TFormula<Register, T> formula(nbChannels);
    for (unsigned long i = 0; i < count; i += Register::s_blockLength)
    {
        StoreLightness<Register, T>::run(out + i, formula(in, i));
    }
}

template <class Register, class T>
void lightness(int formula, unsigned long nbChannels, unsigned long count, const T* const* in, T* out)
{
    if (formula == 0)
    {
        runLightness<Register, T, AverageFormula>(nbChannels, count, in, out);
    }
    else if (formula == 1)
    {
        runLightness<Register, T, MidRangeFormula>(nbChannels, count, in, out);
    }
    else
    {
        runLightness<Register, T, LuminosityFormula>(nbChannels, count, in, out);
    }
}
} // namespace kovis::imaproc::color::kernel

#define KOVIS_INSTANTIATE_LIGHTNESS(REGISTER, T)                                                                                 \
    template void lightness<REGISTER, T>(int, unsigned long, unsigned long, const T* const*, T*);

#define KOVIS_INSTANTIATE_ALL_LIGHTNESS(REGISTER)                                                                                \
    KOVIS_INSTANTIATE_LIGHTNESS(REGISTER, signed char)                                                                           \
    KOVIS_INSTANTIATE_LIGHTNESS(REGISTER, unsigned char)                                                                         \
    KOVIS_INSTANTIATE_LIGHTNESS(REGISTER, short)                                                                                 \
    KOVIS_INSTANTIATE_LIGHTNESS(REGISTER, unsigned short)                                                                        \
    KOVIS_INSTANTIATE_LIGHTNESS(REGISTER, int)                                                                                   \
    KOVIS_INSTANTIATE_LIGHTNESS(REGISTER, unsigned int)                                                                          \
    KOVIS_INSTANTIATE_LIGHTNESS(REGISTER, float)
