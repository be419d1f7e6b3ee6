#include "support/ColorModel.h"

namespace kovis::test
{
namespace
{
float floorStep(const ModelForm& form, float q)
{
    if (!form.m_bFloorByAddition)
    {
        return std::floor(q);
    }
    const float big = std::signbit(q) ? -8388608.0F : 8388608.0F;
    const float there = q + big;
    const float back = there - big;
    return q < back ? back + -1.0F : back + 0.0F;
}

/// c - a * b
float subtractProduct(const ModelForm& form, float a, float b, float c)
{
    if (form.m_bFused)
    {
        return std::fma(-a, b, c);
    }
    const float product = a * b;
    return c - product;
}

float greater(float a, float b)
{
    return a > b ? a : b;
}

float clampTo(float value, float limit)
{
    const float positive = greater(value, 0.0F);
    if (positive >= limit)
    {
        return limit;
    }
    return positive;
}
} // namespace

unsigned long modelReach(const ModelForm& form, unsigned long count)
{
    return (count + form.m_blockLength - 1) / form.m_blockLength * form.m_blockLength;
}

float modelMulAdd(const ModelForm& form, float a, float b, float c)
{
    if (form.m_bFused)
    {
        return std::fma(a, b, c);
    }
    const float product = a * b;
    return product + c;
}

ModelPixel modelHSVFromRGB(const ModelForm& form, const ModelPixel& rgb)
{
    const float r = rgb[0];
    const float g = rgb[1];
    const float b = rgb[2];
    const float rg = greater(r, g);
    const float mx = greater(rg, b);
    const float lesser = r < g ? r : g;
    const float mn = lesser < b ? lesser : b;
    const float delta = mx - mn;

    float e = 0.0F;
    if (delta != 0.0F)
    {
        if (b == mx)
        {
            e = (r - g) / delta + 4.0F;
        }
        else if (g == mx)
        {
            e = (b - r) / delta + 2.0F;
        }
        else
        {
            e = (g - b) / delta;
        }
    }
    const float h60 = e * 60.0F;
    const float q = h60 / 360.0F;
    const float hue = clampTo(subtractProduct(form, floorStep(form, q), 360.0F, h60), 360.0F);
    const float saturation = mx == 0.0F ? 0.0F : delta / mx;
    return {hue, saturation, mx};
}

ModelPixel modelRGBFromHSV(const ModelForm& form, const ModelPixel& hsv)
{
    const float h = hsv[0];
    const float v = hsv[2];
    const float chroma = hsv[1] * v;
    const float m = v - chroma;

    const float folded = clampTo(subtractProduct(form, floorStep(form, h / 360.0F), 360.0F, h), 360.0F);
    const float hs = folded / 60.0F;
    const float w = clampTo(subtractProduct(form, 2.0F, floorStep(form, hs * 0.5F), hs), 2.0F);
    const float x = (1.0F - std::fabs(w - 1.0F)) * chroma;

    ModelPixel parts{};
    if (hs <= 1.0F)
    {
        parts = {chroma, x, 0.0F};
    }
    else if (hs <= 2.0F)
    {
        parts = {x, chroma, 0.0F};
    }
    else if (hs <= 3.0F)
    {
        parts = {0.0F, chroma, x};
    }
    else if (hs <= 4.0F)
    {
        parts = {0.0F, x, chroma};
    }
    else if (hs <= 5.0F)
    {
        parts = {x, 0.0F, chroma};
    }
    else
    {
        parts = {chroma, 0.0F, x};
    }
    return {parts[0] + m, parts[1] + m, parts[2] + m};
}
} // namespace kovis::test
