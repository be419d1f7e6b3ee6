#pragma once

#include "KOVIS/KOVISSimd/floatOfBits.h"

// Constants of the Lab kernels, the same in every form. XYZ is on the scale of 0 to 100.

namespace kovis::imaproc::color::kernel::lab
{
constexpr float g_whiteX = simd::floatOfBits(0x42BE1810); ///< 95.047
constexpr float g_whiteY = 100.0F;
constexpr float g_whiteZ = simd::floatOfBits(0x42D9C419);           ///< 108.883
constexpr float g_forwardThreshold = simd::floatOfBits(0x3C111AA7); ///< 0.008856452, of (6/29)^3
constexpr float g_inverseThreshold = simd::floatOfBits(0x3E53DCB1); ///< 0.20689656, of 6/29
/// 0.12841856, of 3 * (6/29)^2, and meant to be one unit above the nearest float: do not work it out anew.
constexpr float g_slope = simd::floatOfBits(0x3E038028);
constexpr float g_offset = simd::floatOfBits(0x3E0D3DCB);   ///< 0.13793103, of 4/29
constexpr float g_exponent = simd::floatOfBits(0x3EAAAAAB); ///< 0.33333334
} // namespace kovis::imaproc::color::kernel::lab
