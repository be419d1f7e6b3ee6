#pragma once

#include "support/ModelForm.h"

// The table power by itself, as the kernels use it: one plane of bases, one exponent. count is a multiple of 32.

namespace kovis::test
{
void powSse2(float y, unsigned long count, const float* x, float* out);
void powAvx(float y, unsigned long count, const float* x, float* out);
void powAvx2(float y, unsigned long count, const float* x, float* out);
void powFma3(float y, unsigned long count, const float* x, float* out);

struct PowerForm
{
    const ModelForm* m_form;
    void (*m_power)(float y, unsigned long count, const float* x, float* out);
};

inline constexpr PowerForm g_powerForms[] = {
    {&g_sse2Form, &powSse2}, {&g_avxForm, &powAvx}, {&g_avx2Form, &powAvx2}, {&g_fma3Form, &powFma3}};
} // namespace kovis::test
