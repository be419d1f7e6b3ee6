#include "KOVIS/KOVISSerialization/JsonNumber.h"

#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <system_error>

namespace kovis::json
{
namespace
{
constexpr const char* g_nanPrefix = "nan:";

template <class TBits, class T>
std::string makeSpecialText(T value)
{
    if (std::isfinite(value))
    {
        return std::string();
    }
    if (std::isinf(value))
    {
        return value < 0 ? "-inf" : "inf";
    }
    char digits[2 * sizeof(TBits) + 1];
    std::snprintf(digits, sizeof digits, "%0*llx", static_cast<int>(2 * sizeof(TBits)),
                  static_cast<unsigned long long>(std::bit_cast<TBits>(value)));
    return g_nanPrefix + std::string(digits);
}

template <class TBits, class T>
bool readSpecialText(const std::string& text, T& value)
{
    if (text == "inf" || text == "-inf")
    {
        value = text == "inf" ? std::numeric_limits<T>::infinity() : -std::numeric_limits<T>::infinity();
        return true;
    }
    if (text == "nan")
    {
        value = std::numeric_limits<T>::quiet_NaN();
        return true;
    }
    const std::string prefix(g_nanPrefix);
    if (text.size() != prefix.size() + 2 * sizeof(TBits) || text.compare(0, prefix.size(), prefix) != 0)
    {
        return false;
    }
    TBits bits = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data() + prefix.size(), end, bits, 16);
    if (error != std::errc() || stop != end || !std::isnan(std::bit_cast<T>(bits)))
    {
        return false;
    }
    value = std::bit_cast<T>(bits);
    return true;
}
} // namespace

double toJsonNumber(float value)
{
    // 0.1 rather than 0.10000000149011612, if that is the same float
    char text[32];
    const auto written = std::to_chars(text, text + sizeof text, value);
    double number = 0.0;
    float back = 0.0F;
    const auto read = std::from_chars(text, written.ptr, number);
    if (written.ec == std::errc() && read.ec == std::errc() && toFloat(number, back) &&
        std::bit_cast<std::uint32_t>(back) == std::bit_cast<std::uint32_t>(value))
    {
        return number;
    }
    return static_cast<double>(value);
}

std::string toSpecialText(float value)
{
    return makeSpecialText<std::uint32_t>(value);
}

std::string toSpecialText(double value)
{
    return makeSpecialText<std::uint64_t>(value);
}

bool fromSpecialText(const std::string& text, float& value)
{
    return readSpecialText<std::uint32_t>(text, value);
}

bool fromSpecialText(const std::string& text, double& value)
{
    return readSpecialText<std::uint64_t>(text, value);
}

bool toFloat(double number, float& value)
{
    constexpr double greatest = std::numeric_limits<float>::max();
    constexpr double firstBeyond = 0x1.ffffffp127; // half way to what would be the next float
    if (!(std::fabs(number) < firstBeyond))
    {
        return false;
    }
    value = std::fabs(number) > greatest
                ? std::copysign(std::numeric_limits<float>::max(), static_cast<float>(std::copysign(1.0, number)))
                : static_cast<float>(number);
    return true;
}

bool toFloat(const std::string& text, double number, float& value)
{
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    // What is out of range is too small, which is a zero, or too great.
    return (error == std::errc() && stop == end) || toFloat(number, value);
}

DefaultFloatEnvironment::DefaultFloatEnvironment()
{
    std::fegetenv(&m_state);
    std::fesetenv(FE_DFL_ENV);
}

DefaultFloatEnvironment::~DefaultFloatEnvironment()
{
    std::fesetenv(&m_state);
}
} // namespace kovis::json
