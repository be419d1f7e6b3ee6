#pragma once

#include <array>
#include <cmath>
#include <cstring>
#include <limits>
#include <type_traits>

// What the kernels of the colour conversion have to give, pixel by pixel, in plain scalar code that shares nothing with them.

namespace kovis::test
{
/// What sets the forms of a kernel apart.
struct ModelForm
{
    const char* m_name;
    /// A product that feeds straight into a sum is rounded once.
    bool m_bFused;
    /// The floor step adds and takes away 2^23 instead of asking the hardware.
    bool m_bFloorByAddition;
    /// What a NaN becomes at the store to an integer: the greatest value, else the least.
    bool m_bNanIsGreatest;
    /// Pixels per block.
    unsigned long m_blockLength;
};

inline constexpr ModelForm g_genericForm{"generic", false, true, true, 1};
inline constexpr ModelForm g_sse2Form{"sse2", false, true, true, 16};
inline constexpr ModelForm g_avxForm{"avx", false, false, true, 32};
inline constexpr ModelForm g_avx2Form{"avx2", false, false, false, 32};
inline constexpr ModelForm g_fma3Form{"fma3", true, false, false, 32};

/// count rounded up to whole blocks of a form: what a kernel reads and writes.
unsigned long modelReach(const ModelForm& form, unsigned long count);

using ModelPixel = std::array<float, 3>;
ModelPixel modelHSVFromRGB(const ModelForm& form, const ModelPixel& rgb);
ModelPixel modelRGBFromHSV(const ModelForm& form, const ModelPixel& hsv);

/// a * b + c as the form computes it.
float modelMulAdd(const ModelForm& form, float a, float b, float c);

/// The sample as a float: exact, or correctly rounded from 32 bits.
template <class T>
float modelLoad(T sample)
{
    if constexpr (std::is_same_v<T, float>)
    {
        return sample;
    }
    else
    {
        return static_cast<float>(static_cast<double>(sample));
    }
}

/// Saturation and truncation toward zero, and the form's rule for a NaN.
template <class T>
T modelTruncate(const ModelForm& form, float value)
{
    using Limits = std::numeric_limits<T>;
    if (std::isnan(value))
    {
        return form.m_bNanIsGreatest ? Limits::max() : Limits::min();
    }
    const double wide = static_cast<double>(value);
    if (wide >= static_cast<double>(Limits::max()))
    {
        return Limits::max();
    }
    if (wide <= static_cast<double>(Limits::min()))
    {
        return Limits::min();
    }
    return static_cast<T>(static_cast<long long>(wide));
}

/// The store of a formula's value: as it is into float, rounded half away from zero (the half added in float) into integers.
template <class T>
T modelStore(const ModelForm& form, float value)
{
    if constexpr (std::is_same_v<T, float>)
    {
        return value;
    }
    else
    {
        return modelTruncate<T>(form, value < 0.0F ? value + -0.5F : value + 0.5F);
    }
}

/// The copy between equal geometries.
template <class Tin, class Tout>
Tout modelCopy(const ModelForm& form, Tin sample)
{
    if constexpr (std::is_same_v<Tin, Tout>)
    {
        return sample;
    }
    else if constexpr (std::is_same_v<Tout, float>)
    {
        return modelLoad(sample);
    }
    else if constexpr (std::is_same_v<Tin, float>)
    {
        return modelTruncate<Tout>(form, sample);
    }
    else
    {
        const long long wide = sample;
        const long long least = std::numeric_limits<Tout>::min();
        const long long greatest = std::numeric_limits<Tout>::max();
        return static_cast<Tout>(wide < least ? least : wide > greatest ? greatest : wide);
    }
}

/// Planes through a matrix, row after row within each block, so that equal planes on both sides read back what was written.
template <class Tin, class Tout>
void modelLinear(const ModelForm& form, unsigned int inSizeC, unsigned int outSizeC, const float* matrix, unsigned long count,
                 const Tin* const* in, Tout* const* out)
{
    const unsigned long reach = outSizeC == 0 ? 0 : modelReach(form, count);
    for (unsigned long begin = 0; begin < reach; begin += form.m_blockLength)
    {
        for (unsigned int r = 0; r < outSizeC; ++r)
        {
            const float* const row = matrix + r * (inSizeC + 1);
            for (unsigned long i = begin; i < begin + form.m_blockLength; ++i)
            {
                float sum = row[inSizeC];
                for (unsigned int c = 0; c < inSizeC; ++c)
                {
                    sum = modelMulAdd(form, modelLoad(in[c][i]), row[c], sum);
                }
                out[r][i] = modelStore<Tout>(form, sum);
            }
        }
    }
}

/// Same bits, or both a NaN: which NaN an operation gives is open.
template <class T>
bool sameValue(T a, T b)
{
    if constexpr (std::is_same_v<T, float>)
    {
        if (std::isnan(a) && std::isnan(b))
        {
            return true;
        }
    }
    return std::memcmp(&a, &b, sizeof(T)) == 0;
}
} // namespace kovis::test
