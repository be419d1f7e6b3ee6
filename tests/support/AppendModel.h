#pragma once

#include "support/ModelForm.h"

#include <cmath>
#include <cstdint>
#include <limits>
#include <type_traits>

// What the kernels of the channel append have to give, pixel by pixel, in plain scalar code that shares nothing with them. The
// columns of conversion are told by the form: plain code keeps low bits, the vector forms do what their pack operations do.

namespace kovis::test
{
/// The whole part of a float as a signed integer of 32 bits; the least one for NaN and what does not fit.
std::int32_t modelTruncateToInt(float value);

/// A float to unsigned int, by the column of the form.
std::uint32_t modelTruncateToUnsigned(const ModelForm& form, float value);

/// A whole number in the nearest value of 8 or 16 bits, signed or not.
long long modelSaturate(long long value, long long least, long long greatest);

/// 32 bits to an integer type of fewer, by the column of the form.
template <class Tout>
Tout modelNarrowFrom32(const ModelForm& form, std::int32_t value)
{
    using Limits = std::numeric_limits<Tout>;
    if (&form == &g_genericForm)
    {
        return static_cast<Tout>(value);
    }
    if constexpr (std::is_signed_v<Tout>)
    {
        return static_cast<Tout>(modelSaturate(value, Limits::min(), Limits::max()));
    }
    else
    {
        const auto word = static_cast<std::uint16_t>(&form == &g_sse2Form ? value : modelSaturate(value, 0, 65535));
        if constexpr (sizeof(Tout) == 2)
        {
            return word;
        }
        else
        {
            return static_cast<Tout>(modelSaturate(static_cast<std::int16_t>(word), 0, 255));
        }
    }
}

/// One pixel.
template <class Tin, class Tout>
Tout modelAppend(const ModelForm& form, Tin sample)
{
    if constexpr (std::is_same_v<Tin, Tout>)
    {
        return sample;
    }
    else if constexpr (std::is_same_v<Tout, float>)
    {
        return static_cast<float>(static_cast<double>(sample));
    }
    else if constexpr (std::is_same_v<Tin, float> && std::is_same_v<Tout, unsigned int>)
    {
        return modelTruncateToUnsigned(form, sample);
    }
    else if constexpr (std::is_same_v<Tin, float>)
    {
        return modelAppend<std::int32_t, Tout>(form, modelTruncateToInt(sample));
    }
    else if constexpr (sizeof(Tout) >= sizeof(Tin))
    {
        return static_cast<Tout>(sample);
    }
    else if constexpr (sizeof(Tin) == 4)
    {
        return modelNarrowFrom32<Tout>(form, static_cast<std::int32_t>(sample));
    }
    else
    {
        using Limits = std::numeric_limits<Tout>;
        return static_cast<Tout>(&form == &g_genericForm
                                     ? static_cast<long long>(sample)
                                     : modelSaturate(static_cast<std::int16_t>(sample), Limits::min(), Limits::max()));
    }
}
} // namespace kovis::test
