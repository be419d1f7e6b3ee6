#pragma once

// What sets the forms of the kernels apart, and the operations that follow from it.

namespace kovis::test
{
struct ModelForm
{
    const char* m_name;
    /// A product that feeds straight into a sum is rounded once.
    bool m_bFused;
    /// The floor step adds and takes away 2^23 instead of asking the hardware.
    bool m_bFloorByAddition;
    /// What a NaN becomes at the store to an integer: the greatest value, else the least.
    bool m_bNanIsGreatest;
    /// Powers come from tables and polynomials; else from the standard library.
    bool m_bTablePower;
    /// Pixels per block.
    unsigned long m_blockLength;
};

inline constexpr ModelForm g_genericForm{"generic", false, true, true, false, 1};
inline constexpr ModelForm g_sse2Form{"sse2", false, true, true, true, 16};
inline constexpr ModelForm g_avxForm{"avx", false, false, true, true, 32};
inline constexpr ModelForm g_avx2Form{"avx2", false, false, false, true, 32};
inline constexpr ModelForm g_fma3Form{"fma3", true, false, false, true, 32};
/// No kernel of the colour conversion has this form.
inline constexpr ModelForm g_avx512Form{"avx512", false, false, false, true, 64};

/// count rounded up to whole blocks of a form: what a kernel reads and writes.
unsigned long modelReach(const ModelForm& form, unsigned long count);

/// a * b + c as the form computes it.
float modelMulAdd(const ModelForm& form, float a, float b, float c);

/// c - a * b as the form computes it.
float modelNegMulAdd(const ModelForm& form, float a, float b, float c);

float modelFloor(const ModelForm& form, float q);

/// a > b ? a : b, so b where either is a NaN.
float modelGreater(float a, float b);
} // namespace kovis::test
