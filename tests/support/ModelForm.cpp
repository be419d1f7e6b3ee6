#include "support/ModelForm.h"

#include <cmath>

namespace kovis::test
{
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

float modelNegMulAdd(const ModelForm& form, float a, float b, float c)
{
    if (form.m_bFused)
    {
        return std::fma(-a, b, c);
    }
    const float product = a * b;
    return c - product;
}

float modelFloor(const ModelForm& form, float q)
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

float modelGreater(float a, float b)
{
    return a > b ? a : b;
}
} // namespace kovis::test
