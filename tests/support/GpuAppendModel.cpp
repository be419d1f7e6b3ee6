#include "support/GpuAppendModel.h"

#include <bit>
#include <cmath>
#include <stdexcept>

namespace kovis::test
{
namespace
{
constexpr std::int64_t g_turn = std::int64_t(1) << 32; // unsigned int counts modulo this

struct Limits
{
    std::int64_t m_lo;
    std::int64_t m_hi;
};

Limits getLimits(PixelType type)
{
    switch (type)
    {
    case PixelType::i8:
        return {-128, 127};
    case PixelType::u8:
        return {0, 255};
    case PixelType::i16:
        return {-32768, 32767};
    case PixelType::u16:
        return {0, 65535};
    case PixelType::i32:
        return {-2147483648LL, 2147483647LL};
    case PixelType::u32:
        return {0, 4294967295LL};
    case PixelType::f32:
        break;
    }
    throw std::logic_error("a float has no whole limits");
}

bool isSigned(PixelType type)
{
    return type == PixelType::i8 || type == PixelType::i16 || type == PixelType::i32;
}

PixelType getCommonType(PixelType a, PixelType b)
{
    if (a == PixelType::f32 || b == PixelType::f32)
    {
        return PixelType::f32;
    }
    if (a == PixelType::u32 || b == PixelType::u32)
    {
        return PixelType::u32;
    }
    return a == PixelType::i32 || b == PixelType::i32 || a != b ? PixelType::i32 : a;
}

PixelValue makeNumber(PixelType type, std::int64_t number)
{
    return {type, number, 0};
}

PixelValue makeFloat(double value)
{
    return {PixelType::f32, 0, std::bit_cast<std::uint32_t>(static_cast<float>(value))};
}

std::int64_t wrap(std::int64_t number)
{
    return ((number % g_turn) + g_turn) % g_turn;
}

PixelValue toCommonType(const PixelValue& value, PixelType common)
{
    if (value.m_type == PixelType::f32)
    {
        return value;
    }
    if (common == PixelType::f32)
    {
        return makeFloat(static_cast<double>(value.m_number));
    }
    return makeNumber(common, common == PixelType::u32 ? wrap(value.m_number) : value.m_number);
}

PixelValue saturateFloat(std::uint32_t bits, PixelType target)
{
    const double value = std::bit_cast<float>(bits);
    if (target == PixelType::f32)
    {
        constexpr std::uint32_t loBits = 0xFF7FFFEEU;
        constexpr std::uint32_t hiBits = 0x7F7FFFFFU;
        if (value <= std::bit_cast<float>(loBits))
        {
            return {PixelType::f32, 0, loBits};
        }
        return {PixelType::f32, 0, value > std::bit_cast<float>(hiBits) ? hiBits : bits};
    }
    const Limits limits = getLimits(target);
    if (std::isnan(value))
    {
        return makeNumber(target, 0);
    }
    if (value <= static_cast<double>(limits.m_lo))
    {
        return makeNumber(target, limits.m_lo);
    }
    // At the first power of two past the end the device's conversion stops too.
    if (value >= static_cast<double>(limits.m_hi))
    {
        return makeNumber(target, limits.m_hi);
    }
    return makeNumber(target, static_cast<std::int64_t>(std::trunc(value)));
}
} // namespace

PixelValue appendOnGpuModel(const PixelValue& value, PixelType other, PixelType target)
{
    const PixelType common = getCommonType(value.m_type, other);
    const PixelValue met = toCommonType(value, common);
    if (common == PixelType::f32)
    {
        return saturateFloat(met.m_bits, target);
    }
    if (target == PixelType::f32)
    {
        return makeFloat(static_cast<double>(met.m_number));
    }
    if (common == target)
    {
        return met;
    }
    const Limits limits = getLimits(target);
    if (isSigned(common) && target == PixelType::u32)
    {
        return makeNumber(target, wrap(met.m_number));
    }
    if (common == PixelType::u32 && isSigned(target))
    {
        return makeNumber(target, met.m_number <= wrap(limits.m_lo) ? limits.m_lo : limits.m_hi);
    }
    if (met.m_number < limits.m_lo)
    {
        return makeNumber(target, limits.m_lo);
    }
    return makeNumber(target, met.m_number > limits.m_hi ? limits.m_hi : met.m_number);
}
} // namespace kovis::test
