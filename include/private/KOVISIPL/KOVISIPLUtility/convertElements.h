#pragma once

#include "KOVIS/KOVISUtil/NumericLimits.h"

#include <type_traits>

namespace kovis::imaproc::util
{
/// The value in another element type: plainly to float; to an integer type rounded half away from zero and saturated, a NaN as 0.
template <class Tout, class Tin>
inline Tout convertElement(Tin value, Tout least, Tout greatest)
{
    if constexpr (std::is_same_v<Tin, Tout>)
    {
        return value;
    }
    else if constexpr (std::is_floating_point_v<Tout>)
    {
        return static_cast<Tout>(value);
    }
    else if constexpr (std::is_floating_point_v<Tin>)
    {
        const double wide = value; // a double takes the half without rounding it
        const double rounded = wide < 0.0 ? wide - 0.5 : wide + 0.5;
        if (!(rounded > static_cast<double>(least)))
        {
            return wide == wide ? least : Tout(0);
        }
        return rounded < static_cast<double>(greatest) ? static_cast<Tout>(rounded) : greatest;
    }
    else
    {
        using Wide = std::conditional_t<(sizeof(Tin) < 4 && sizeof(Tout) < 4), int, long>;
        const Wide wide = static_cast<Wide>(value);
        const Wide raised = wide < static_cast<Wide>(least) ? static_cast<Wide>(least) : wide;
        return static_cast<Tout>(raised > static_cast<Wide>(greatest) ? static_cast<Wide>(greatest) : raised);
    }
}

template <class Tin, class Tout>
void convertElements(const Tin* in, Tout* out, unsigned long count)
{
    const Tout least = NumericLimits<Tout>::s_min;
    const Tout greatest = NumericLimits<Tout>::s_max;
    for (unsigned long i = 0; i < count; ++i)
    {
        out[i] = convertElement<Tout>(in[i], least, greatest);
    }
}
} // namespace kovis::imaproc::util
