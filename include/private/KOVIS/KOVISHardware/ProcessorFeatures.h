#pragma once

#include "KOVIS/KOVISUtil/eInstructionSet.h"

namespace kovis::hard
{
/// The registers in which an x86 processor tells its features, as cpuid and xgetbv give them; 0 where a leaf does not exist.
struct ProcessorFeatures
{
    unsigned int m_leaf1Ecx = 0;
    unsigned int m_leaf1Edx = 0;
    unsigned int m_leaf7Ebx = 0;
    unsigned int m_xcr0 = 0; ///< the low half; registers that the operating system saves
};

constexpr bool hasAllBits(unsigned int value, unsigned int bits)
{
    return (value & bits) == bits;
}

/// Bit n of the result is set where set n of eInstructionSet can be used: every feature is there and its registers are saved.
constexpr unsigned int toInstructionSets(const ProcessorFeatures& features)
{
    constexpr unsigned int sse2 = (1u << 25) | (1u << 26); // leaf 1 edx: SSE, SSE2
    constexpr unsigned int avx = (1u << 27) | (1u << 28);  // leaf 1 ecx: OSXSAVE, AVX
    constexpr unsigned int fma = 1u << 12;                 // leaf 1 ecx
    constexpr unsigned int avx2 = 1u << 5;                 // leaf 7 ebx
    // Leaf 7 ebx: F, DQ, BW, VL.
    constexpr unsigned int avx512 = (1u << 16) | (1u << 17) | (1u << 30) | (1u << 31);
    constexpr unsigned int savedAvx = 0x06u;    // xmm, upper halves of ymm
    constexpr unsigned int savedAvx512 = 0xe6u; // these, mask registers, upper halves of zmm, zmm16 to zmm31

    const bool bAvx = hasAllBits(features.m_leaf1Ecx, avx) && hasAllBits(features.m_xcr0, savedAvx);
    const bool bFma = bAvx && hasAllBits(features.m_leaf1Ecx, fma);
    const bool bAvx2 = bAvx && hasAllBits(features.m_leaf7Ebx, avx2);
    // Code for AVX512 is free to use AVX2 and fused arithmetic as well.
    const bool bAvx512 = bAvx2 && bFma && hasAllBits(features.m_leaf7Ebx, avx512) && hasAllBits(features.m_xcr0, savedAvx512);

    unsigned int sets = 1u << eInstructionSet::eIS_Generic;
    sets |= hasAllBits(features.m_leaf1Edx, sse2) ? 1u << eInstructionSet::eIS_SSE2 : 0u;
    sets |= bAvx ? 1u << eInstructionSet::eIS_AVX : 0u;
    sets |= bFma ? 1u << eInstructionSet::eIS_FMA3 : 0u;
    sets |= bAvx2 ? 1u << eInstructionSet::eIS_AVX2 : 0u;
    sets |= bAvx512 ? 1u << eInstructionSet::eIS_AVX512 : 0u;
    return sets;
}
} // namespace kovis::hard
