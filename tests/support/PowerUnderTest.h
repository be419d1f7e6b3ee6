#pragma once

#include "KOVIS/KOVISSimd/Forms.h"
#include "support/ModelForm.h"

// The table power by itself, as the kernels use it, and its two steps that read tables. Declarations alone, as code outside
// target regions sees them. Planes of count floats; count is a multiple of 32.

namespace kovis::test
{
template <class Register>
void powPlane(float y, unsigned long count, const float* x, float* out);

/// Of mantissas: the planes of A, B, Ainv and the sixteenths.
template <class Register>
void searchPlane(unsigned long count, const float* mantissas, float* const* found);

/// Of whole numbers of sixteenths: the planes of the table's part and of the scale.
template <class Register>
void splitPlane(unsigned long count, const float* sixteenths, float* const* found);

struct PowerForm
{
    const ModelForm* m_form;
    void (*m_power)(float y, unsigned long count, const float* x, float* out);
    void (*m_search)(unsigned long count, const float* mantissas, float* const* found);
    void (*m_split)(unsigned long count, const float* sixteenths, float* const* found);
};

template <class Register>
constexpr PowerForm powerFormOf(const ModelForm& form)
{
    return {&form, &powPlane<Register>, &searchPlane<Register>, &splitPlane<Register>};
}

inline constexpr PowerForm g_powerForms[] = {
    powerFormOf<simd::sse2::Register>(g_sse2Form), powerFormOf<simd::avx::Register>(g_avxForm),
    powerFormOf<simd::avx2::Register>(g_avx2Form), powerFormOf<simd::fma3_avx2::Register>(g_fma3Form)};
} // namespace kovis::test
