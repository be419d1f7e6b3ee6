#pragma once

#include "support/ModelForm.h"

#include <array>
#include <cmath>
#include <cstring>
#include <limits>
#include <type_traits>

// How a sample becomes a float and a float a sample.

namespace kovis::test
{
using ModelPixel = std::array<float, 3>;

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
