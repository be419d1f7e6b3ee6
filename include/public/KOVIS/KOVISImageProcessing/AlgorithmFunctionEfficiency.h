#pragma once

#include "KOVIS/KOVISUtil/eInstructionSet.h"

namespace kovis::imaproc
{
/// How well a kernel of these instruction sets serves: it grows with the width of the registers, and fused arithmetic comes above
/// plain.
template <eInstructionSet::domain A, eInstructionSet::domain B, eInstructionSet::domain C>
struct AlgorithmFunctionEfficiency
{
    static constexpr unsigned int getEfficiency()
    {
        return (rank(A) > rank(B) ? (rank(A) > rank(C) ? rank(A) : rank(C)) : (rank(B) > rank(C) ? rank(B) : rank(C))) +
               (isFused() ? 1U : 0U);
    }

private:
    static constexpr unsigned int rank(eInstructionSet::domain set)
    {
        switch (set)
        {
        case eInstructionSet::eIS_SSE2:
            return 10;
        case eInstructionSet::eIS_AVX:
        case eInstructionSet::eIS_FMA3:
            return 20;
        case eInstructionSet::eIS_AVX2:
            return 30;
        case eInstructionSet::eIS_AVX512:
            return 40;
        default:
            return 0;
        }
    }
    static constexpr bool isFused()
    {
        return A == eInstructionSet::eIS_FMA3 || B == eInstructionSet::eIS_FMA3 || C == eInstructionSet::eIS_FMA3;
    }
};
} // namespace kovis::imaproc
