#pragma once

#include "KOVIS/KOVISUtil/eInstructionSet.h"

// The forms that a kernel may have, for code outside target regions: names only.

namespace kovis::simd
{
namespace generic
{
struct Register;
}
namespace sse2
{
struct Register;
}
namespace avx
{
struct Register;
}
namespace avx2
{
struct Register;
}
namespace fma3_avx2
{
struct Register;
}
namespace avx512
{
struct Register;
}

/// The register type of the form that a kernel table names by two instruction sets.
template <eInstructionSet::domain ISA1, eInstructionSet::domain ISA2>
struct FormOf;

template <>
struct FormOf<eInstructionSet::eIS_Generic, eInstructionSet::eIS_Generic>
{
    using Register = generic::Register;
};
template <>
struct FormOf<eInstructionSet::eIS_SSE2, eInstructionSet::eIS_SSE2>
{
    using Register = sse2::Register;
};
template <>
struct FormOf<eInstructionSet::eIS_AVX, eInstructionSet::eIS_AVX>
{
    using Register = avx::Register;
};
template <>
struct FormOf<eInstructionSet::eIS_AVX2, eInstructionSet::eIS_AVX2>
{
    using Register = avx2::Register;
};
template <>
struct FormOf<eInstructionSet::eIS_FMA3, eInstructionSet::eIS_AVX2>
{
    using Register = fma3_avx2::Register;
};
template <>
struct FormOf<eInstructionSet::eIS_AVX512, eInstructionSet::eIS_AVX512>
{
    using Register = avx512::Register;
};
} // namespace kovis::simd
