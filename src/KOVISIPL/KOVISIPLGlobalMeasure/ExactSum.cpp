#include "KOVISIPL/KOVISIPLGlobalMeasure/ExactSum.h"

#include <bit>
#include <cmath>

namespace kovis::imaproc::glbmsr
{
namespace
{
constexpr unsigned int g_maxTerms = 1U << 29U; // each adds less than 2^32 to a digit of 63 bits
constexpr std::uint64_t g_digitMask = 0xffffffffU;
} // namespace

void ExactSum::add(double term)
{
    const auto bits = std::bit_cast<std::uint64_t>(term);
    const int biased = static_cast<int>((bits >> 52U) & 0x7ffU);
    if (biased == 0x7ff)
    {
        m_special += term;
        return;
    }
    if (biased == 0)
    {
        return; // zero, or far below the lowest digit
    }
    std::uint64_t mantissa = (bits & 0xfffffffffffffU) | (std::uint64_t{1} << 52U);
    int position = biased - 1075 - g_lowestExponent; // of the mantissa's lowest bit
    if (position < 0)
    {
        mantissa = position <= -64 ? 0 : mantissa >> static_cast<unsigned int>(-position);
        position = 0;
    }
    const auto digit = static_cast<std::size_t>(position / 32);
    const auto shift = static_cast<unsigned int>(position % 32);
    if (digit + 3 > m_digits.size())
    {
        m_special += term; // larger than any sum of floats or of their squares
        return;
    }
    const std::uint64_t low = (mantissa & g_digitMask) << shift;
    const std::uint64_t high = (mantissa >> 32U) << shift;
    const auto digit0 = static_cast<std::int64_t>(low & g_digitMask);
    const auto digit1 = static_cast<std::int64_t>((low >> 32U) + (high & g_digitMask));
    const auto digit2 = static_cast<std::int64_t>(high >> 32U);
    const std::int64_t sign = (bits >> 63U) != 0 ? -1 : 1;
    m_digits[digit] += sign * digit0;
    m_digits[digit + 1] += sign * digit1;
    m_digits[digit + 2] += sign * digit2;
    if (++m_nbTerms >= g_maxTerms)
    {
        carry();
    }
}

void ExactSum::add(const ExactSum& other)
{
    ExactSum carried(other);
    carried.carry();
    carry();
    for (std::size_t i = 0; i < m_digits.size(); ++i)
    {
        m_digits[i] += carried.m_digits[i];
    }
    m_special += other.m_special;
    carry();
}

long double ExactSum::getValue() const
{
    if (m_special != 0.0) // an infinity or a NaN
    {
        return static_cast<long double>(m_special);
    }
    ExactSum carried(*this);
    carried.carry();
    // of a negative sum all digits but the highest are what it lacks to the next power: the magnitude is read instead
    const bool bNegative = carried.m_digits.back() < 0;
    if (bNegative)
    {
        for (std::int64_t& digit : carried.m_digits)
        {
            digit = -digit;
        }
        carried.carry();
    }
    long double value = 0.0L;
    for (int i = 0; i < g_nbDigits; ++i)
    {
        value += std::ldexp(static_cast<long double>(carried.m_digits[static_cast<std::size_t>(i)]), 32 * i + g_lowestExponent);
    }
    return bNegative ? -value : value;
}

/// Brings every digit but the highest into [0, 2^32), so that a value has one form.
void ExactSum::carry()
{
    for (std::size_t i = 0; i + 1 < m_digits.size(); ++i)
    {
        const std::int64_t over = m_digits[i] >> 32U;
        m_digits[i] -= over * (std::int64_t{1} << 32U);
        m_digits[i + 1] += over;
    }
    m_nbTerms = 1;
}
} // namespace kovis::imaproc::glbmsr
