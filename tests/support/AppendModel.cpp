#include "support/AppendModel.h"

namespace kovis::test
{
std::int32_t modelTruncateToInt(float value)
{
    const double whole = std::trunc(static_cast<double>(value));
    if (!(whole >= -2147483648.0 && whole <= 2147483647.0))
    {
        return std::numeric_limits<std::int32_t>::min();
    }
    return static_cast<std::int32_t>(whole);
}

std::uint32_t modelTruncateToUnsigned(const ModelForm& form, float value)
{
    const double whole = std::trunc(static_cast<double>(value));
    if (&form == &g_genericForm)
    {
        // what does not fit into 64 bits has no low bits
        const bool bFits = whole >= -9223372036854775808.0 && whole < 9223372036854775808.0;
        return bFits ? static_cast<std::uint32_t>(static_cast<long long>(whole)) : 0U;
    }
    if (&form == &g_avx512Form)
    {
        return whole >= 0.0 && whole <= 4294967295.0 ? static_cast<std::uint32_t>(whole) : 0xFFFFFFFFU;
    }
    // NaN and negative numbers are held at 0; above 32 bits the lowered number does not fit and the top bit added to it drops out
    return whole >= 0.0 && whole <= 4294967295.0 ? static_cast<std::uint32_t>(whole) : 0U;
}

long long modelSaturate(long long value, long long least, long long greatest)
{
    return value < least ? least : value > greatest ? greatest : value;
}
} // namespace kovis::test
