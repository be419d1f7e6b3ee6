#pragma once

namespace kovis
{
/// An instruction set that a kernel may be written for. The numbers are fixed; those left out belong to sets without kernels.
struct eInstructionSet
{
    enum domain : int
    {
        eIS_Generic = 0, ///< plain x86-64, one value at a time
        eIS_SSE2 = 1,
        eIS_AVX = 5,
        eIS_FMA3 = 6, ///< fused multiply-add on AVX registers
        eIS_AVX2 = 7,
        eIS_AVX512 = 8 ///< F, BW, DQ and VL together
    };

    constexpr eInstructionSet(domain value = eIS_Generic) : m_value(value) {}
    constexpr operator domain() const { return m_value; }

private:
    domain m_value;
};
} // namespace kovis
