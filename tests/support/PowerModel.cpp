#include "support/PowerModel.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>

namespace kovis::test
{
namespace
{
/// What the entries at even places lack of the true power.
constexpr std::array<float, 9> g_correction{0.0F,
                                            -5.61963898e-09F,
                                            -1.23776633e-08F,
                                            4.03545242e-09F,
                                            1.21016175e-08F,
                                            -2.00949977e-08F,
                                            1.89881764e-08F,
                                            -6.53876997e-09F,
                                            0.0F};

std::array<float, 17> makeTable(double sign)
{
    std::array<float, 17> table{};
    for (int i = 0; i <= 16; ++i)
    {
        table[static_cast<std::size_t>(i)] = static_cast<float>(std::exp2(sign * i / 16.0));
    }
    return table;
}

const std::array<float, 17>& getTable()
{
    static const std::array<float, 17> g_table = makeTable(-1.0);
    return g_table;
}

const std::array<float, 17>& getInverseTable()
{
    static const std::array<float, 17> g_table = makeTable(1.0);
    return g_table;
}

/// The even place whose entry lies nearest to the mantissa m, from 0.5 up to 1.
int findPlace(float m)
{
    int i = m <= modelPowerTable(9) ? 9 : 1;
    if (m <= modelPowerTable(i + 4))
    {
        i += 4;
    }
    if (m <= modelPowerTable(i + 2))
    {
        i += 2;
    }
    if (m >= modelPowerTable(1))
    {
        i = -1;
    }
    return i + 1;
}

/// Toward zero. What is out of range, NaN included, gives the least int, as the processor has it.
int truncate(float value)
{
    if (!(value >= -2147483648.0F && value < 2147483648.0F))
    {
        return std::numeric_limits<int>::min();
    }
    return static_cast<int>(value);
}

/// The power of abs(x), for what is positive and finite; any other x and y give some number.
float tablePower(const ModelForm& form, float x, float y)
{
    const float ya = modelReduc(form, y);
    const float yb = y - ya;

    const std::uint32_t bits = std::bit_cast<std::uint32_t>(x) & 0x7FFFFFFFU;
    const float m = std::bit_cast<float>((bits & 0x007FFFFFU) | 0x3F000000U);
    const float e = static_cast<float>(static_cast<int>(bits >> 23) - 126);

    const ModelPowerPlace place = modelPowerPlace(m);
    const float distance = m - place.m_a;
    const float v = (distance - place.m_b) * place.m_aInverse;

    const float z = v * v;
    float w = modelMulAdd(form, -0.166388303F, v, 0.200377032F);
    w = modelMulAdd(form, w, v, -0.250000626F);
    w = modelMulAdd(form, w, v, 0.333333105F);
    w = w * v;
    w = w * z;
    w = modelNegMulAdd(form, 0.5F, z, w);
    w = modelMulAdd(form, 0.442695051F, w, w);
    w = modelMulAdd(form, 0.442695051F, v, w);
    w = w + v;
    const float n = e - static_cast<float>(place.m_i) * 0.0625F;

    // The product of w is the fused one, that of n keeps its own rounding.
    const float small = n * yb;
    const float f = modelMulAdd(form, w, y, small);
    const float fa = modelReduc(form, f);
    const float fb = f - fa;
    const float g = modelMulAdd(form, n, ya, fa);
    const float ga = modelReduc(form, g);
    const float gb = g - ga;
    const float h = fb + gb;
    const float ha = modelReduc(form, h);
    std::int64_t k = truncate(16.0F * (ga + ha));
    float hb = h - ha;
    if (hb > 0.0F)
    {
        k = k + 1;
        hb = hb - 0.0625F;
    }

    float p = modelMulAdd(form, 0.00941699371F, hb, 0.0554935634F);
    p = modelMulAdd(form, p, hb, 0.240226284F);
    p = modelMulAdd(form, p, hb, 0.693147182F);
    p = p * hb;

    const ModelPowerSplit split = modelPowerSplit(k);
    return modelMulAdd(form, p, split.m_entry, split.m_entry) * split.m_scale;
}

bool isWhole(float y)
{
    return std::isfinite(y) && std::trunc(y) == y;
}

/// Infinities are not odd.
bool isOdd(float y)
{
    return isWhole((y - 1.0F) / 2.0F);
}

/// Later rows override earlier ones.
float withSpecialValues(float r, float x, float y)
{
    constexpr float infinity = std::numeric_limits<float>::infinity();
    const bool bOdd = isOdd(y);
    float result = r;
    if (x < 0.0F)
    {
        // The sign turns at even exponents too.
        result = isWhole(y) ? -r : std::numeric_limits<float>::quiet_NaN();
    }
    if (x == 0.0F)
    {
        const bool bNegativeZero = std::signbit(x);
        if (y == 0.0F)
        {
            result = 1.0F;
        }
        else if (y > 0.0F)
        {
            // Positive for a negative zero with an odd exponent too.
            result = 0.0F;
        }
        else
        {
            result = bNegativeZero && bOdd ? -infinity : infinity;
        }
    }
    if (y == infinity)
    {
        result = std::fabs(x) >= 1.0F ? infinity : 0.0F;
    }
    if (y == -infinity)
    {
        result = std::fabs(x) < 1.0F ? infinity : 0.0F;
    }
    if (std::isinf(y) && x == -1.0F)
    {
        result = 1.0F;
    }
    if (x == -infinity)
    {
        result = std::copysign(y < 0.0F ? 0.0F : infinity, bOdd ? -1.0F : 1.0F);
    }
    if (x == infinity)
    {
        result = y > 0.0F ? infinity : 0.0F;
    }
    if (std::isnan(x) || std::isnan(y))
    {
        result = std::numeric_limits<float>::quiet_NaN();
    }
    if (x == 1.0F)
    {
        result = 1.0F;
    }
    if (y == 0.0F)
    {
        result = 1.0F;
    }
    return result;
}
} // namespace

float modelPowerTable(int i)
{
    return getTable()[static_cast<std::size_t>(i)];
}

ModelPowerPlace modelPowerPlace(float m)
{
    const int i = findPlace(m);
    const std::size_t place = static_cast<std::size_t>(i);
    return {i, getTable()[place], g_correction[place / 2], getInverseTable()[place]};
}

ModelPowerSplit modelPowerSplit(std::int64_t k)
{
    const std::int64_t j = k >= 0 ? k / 16 + 1 : -(-k / 16);
    return {getTable()[static_cast<std::size_t>(16 * j - k)],
            std::ldexp(1.0F, static_cast<int>(std::clamp<std::int64_t>(j, -126, 127)))};
}

float modelReduc(const ModelForm& form, float v)
{
    return modelFloor(form, 16.0F * v) * 0.0625F;
}

float modelPower(const ModelForm& form, float x, float y)
{
    if (!form.m_bTablePower)
    {
        return ::powf(x, y);
    }
    return withSpecialValues(tablePower(form, x, y), x, y);
}
} // namespace kovis::test
