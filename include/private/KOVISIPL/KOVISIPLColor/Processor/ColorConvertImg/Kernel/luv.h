#pragma once

#include "KOVIS/KOVISSimd/PowNoCheckReg.h"

// Included inside a target region, after a register header. Constants of the Luv kernels; the white is this family's own.

namespace kovis::imaproc::color::kernel::luv
{
constexpr float g_whiteY = simd::floatOfBits(0x3EA875D5); ///< 0.329024
constexpr float g_whiteU = simd::floatOfBits(0x3E4A8C15); ///< 0.1978
constexpr float g_whiteV = simd::floatOfBits(0x3EEFC505); ///< 0.4683
constexpr float g_branchPoint = 8.0F;
constexpr float g_rootExponent = simd::floatOfBits(0x3EAAAAAB); ///< 0.33333334
constexpr float g_cubeExponent = 3.0F;

/// (6/29)^3, (29/3)^3 and (3/29)^3. The vector forms make them at each kernel's start by their own power, so that the first and
/// the last lie one unit below those of the generic form: meant so.
template <class Register>
struct Cubes
{
    using Float = typename Register::Float;

    static KOVIS_SIMD_INLINE Float forwardThreshold() { return cube(0.206896558F); }
    static KOVIS_SIMD_INLINE Float forwardSlope() { return cube(9.66666698F); }
    static KOVIS_SIMD_INLINE Float inverseSlope() { return cube(0.103448279F); }

private:
    static KOVIS_SIMD_INLINE Float cube(float base)
    {
        return simd::Power<Register>::run(Register::broadcast(base), simd::Power<Register>::exponent(g_cubeExponent));
    }
};

template <>
struct Cubes<simd::generic::Register>
{
    static KOVIS_SIMD_INLINE float forwardThreshold() { return simd::floatOfBits(0x3C111AA8); }
    static KOVIS_SIMD_INLINE float forwardSlope() { return simd::floatOfBits(0x4461D2F8); }
    static KOVIS_SIMD_INLINE float inverseSlope() { return simd::floatOfBits(0x3A911AA8); }
};
} // namespace kovis::imaproc::color::kernel::luv
