#include "support/LightnessModel.h"

#include <cmath>
#include <cstdint>
#include <limits>
#include <type_traits>

namespace kovis::test
{
namespace
{
template <class T>
float modelMean(const std::vector<T>& channels)
{
    float sum = 0.0F;
    for (const T value : channels)
    {
        sum = sum + static_cast<float>(value);
    }
    return sum / static_cast<float>(channels.size());
}

template <class T>
float modelMiddle(const std::vector<T>& channels)
{
    T low = std::numeric_limits<T>::max();
    T high = std::numeric_limits<T>::lowest();
    for (const T value : channels)
    {
        if (value < low)
        {
            low = value;
        }
        if (value > high)
        {
            high = value;
        }
    }
    return (static_cast<float>(low) + static_cast<float>(high)) * 0.5F;
}

/// The weights by their bits.
template <class T>
float modelWeightedSum(const ModelForm& form, const std::vector<T>& channels)
{
    const float red = static_cast<float>(channels[0]);
    const float green = static_cast<float>(channels[1]);
    const float blue = static_cast<float>(channels[2]);
    const float redWeight = 0x1.AE147Ap-3F;
    const float greenWeight = 0x1.70A3D8p-1F;
    const float blueWeight = 0x1.1EB852p-4F;
    const float greenPart = green * greenWeight;
    const float redPart = red * redWeight;
    if (&form != &g_avx512Form)
    {
        const float sum = redPart + greenPart;
        const float bluePart = blue * blueWeight;
        return sum + bluePart;
    }
    const float sum = std::is_same_v<T, float> ? std::fma(red, redWeight, greenPart) : redPart + greenPart;
    return std::fma(blue, blueWeight, sum);
}

/// A whole number to T. The 32-bit types have answers of their own to what they cannot hold.
template <class T>
T modelStore(const ModelForm& form, double whole)
{
    if constexpr (std::is_same_v<T, int>)
    {
        return whole < 2147483648.0 && whole >= -2147483648.0 ? static_cast<int>(whole) : std::numeric_limits<int>::min();
    }
    else if constexpr (std::is_same_v<T, unsigned int>)
    {
        if (whole < 4294967296.0)
        {
            return static_cast<unsigned int>(whole);
        }
        if (&form == &g_avx512Form)
        {
            return std::numeric_limits<unsigned int>::max();
        }
        return &form == &g_genericForm ? static_cast<unsigned int>(static_cast<std::uint64_t>(whole) % 4294967296U) : 0U;
    }
    else
    {
        return static_cast<T>(whole);
    }
}
} // namespace

template <class T>
T modelLightness(const ModelForm& form, int formula, const std::vector<T>& channels)
{
    const float value = formula == 0   ? modelMean(channels)
                        : formula == 1 ? modelMiddle(channels)
                                       : modelWeightedSum(form, channels);
    if constexpr (std::is_same_v<T, float>)
    {
        return value;
    }
    else
    {
        const float rounded = value < 0.0F ? value - 0.5F : value + 0.5F;
        return modelStore<T>(form, static_cast<double>(std::trunc(rounded)));
    }
}

template signed char modelLightness(const ModelForm&, int, const std::vector<signed char>&);
template unsigned char modelLightness(const ModelForm&, int, const std::vector<unsigned char>&);
template short modelLightness(const ModelForm&, int, const std::vector<short>&);
template unsigned short modelLightness(const ModelForm&, int, const std::vector<unsigned short>&);
template int modelLightness(const ModelForm&, int, const std::vector<int>&);
template unsigned int modelLightness(const ModelForm&, int, const std::vector<unsigned int>&);
template float modelLightness(const ModelForm&, int, const std::vector<float>&);
} // namespace kovis::test
