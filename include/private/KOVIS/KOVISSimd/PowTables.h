#pragma once

#include "KOVIS/KOVISSimd/floatOfBits.h"

// The tables of the table power, the same in every form. Data alone: it may stand inside and outside target regions.

namespace kovis::simd::detail
{
/// A[i] = 2^(-i/16), rounded to float.
constexpr float A[17] = {floatOfBits(0x3F800000), floatOfBits(0x3F75257D), floatOfBits(0x3F6AC0C7), floatOfBits(0x3F60CCDF),
                         floatOfBits(0x3F5744FD), floatOfBits(0x3F4E248C), floatOfBits(0x3F45672A), floatOfBits(0x3F3D08A4),
                         floatOfBits(0x3F3504F3), floatOfBits(0x3F2D583F), floatOfBits(0x3F25FED7), floatOfBits(0x3F1EF532),
                         floatOfBits(0x3F1837F0), floatOfBits(0x3F11C3D3), floatOfBits(0x3F0B95C2), floatOfBits(0x3F05AAC3),
                         floatOfBits(0x3F000000)};

/// What the rounding of A[2 * i] leaves of the power itself, for even indices alone: the table search gives no others.
constexpr float B[9] = {0.0F,
                        -5.61963898e-09F,
                        -1.23776633e-08F,
                        4.03545242e-09F,
                        1.21016175e-08F,
                        -2.00949977e-08F,
                        1.89881764e-08F,
                        -6.53876997e-09F,
                        0.0F};

/// Ainv[i] = 2^(i/16), rounded to float.
constexpr float Ainv[17] = {floatOfBits(0x3F800000), floatOfBits(0x3F85AAC3), floatOfBits(0x3F8B95C2), floatOfBits(0x3F91C3D3),
                            floatOfBits(0x3F9837F0), floatOfBits(0x3F9EF532), floatOfBits(0x3FA5FED7), floatOfBits(0x3FAD583F),
                            floatOfBits(0x3FB504F3), floatOfBits(0x3FBD08A4), floatOfBits(0x3FC5672A), floatOfBits(0x3FCE248C),
                            floatOfBits(0x3FD744FD), floatOfBits(0x3FE0CCDF), floatOfBits(0x3FEAC0C7), floatOfBits(0x3FF5257D),
                            floatOfBits(0x40000000)};

/// The bits of A[1] / 2: the mantissas of the table search begin there. One of A[1] up to 1 goes as its half, with an exponent
/// that is one more and index 16 in place of 0. Nothing else changes: the steps after it give the same numbers.
constexpr int g_powFirstMantissa = 0x3EF5257D;

/// What the tables hold at an index i of the search, side by side, for a form that reads them in one load.
struct alignas(16) PowReductionRow
{
    float m_a;          ///< A[i]
    float m_b;          ///< B[i / 2]
    float m_aInverse;   ///< Ainv[i]
    float m_sixteenths; ///< i / 16
};
/// At i = 2, 4, ... 16.
constexpr PowReductionRow g_powReductionRows[8] = {{A[2], B[1], Ainv[2], 0.125F},   {A[4], B[2], Ainv[4], 0.25F},
                                                   {A[6], B[3], Ainv[6], 0.375F},   {A[8], B[4], Ainv[8], 0.5F},
                                                   {A[10], B[5], Ainv[10], 0.625F}, {A[12], B[6], Ainv[12], 0.75F},
                                                   {A[14], B[7], Ainv[14], 0.875F}, {A[16], B[8], Ainv[16], 1.0F}};

// The same by columns, for forms that hold a table in a register.
constexpr float g_powA[8] = {A[2], A[4], A[6], A[8], A[10], A[12], A[14], A[16]};
constexpr float g_powB[8] = {B[1], B[2], B[3], B[4], B[5], B[6], B[7], B[8]};
constexpr float g_powAInverse[8] = {Ainv[2], Ainv[4], Ainv[6], Ainv[8], Ainv[10], Ainv[12], Ainv[14], Ainv[16]};
constexpr float g_powSixteenths[8] = {0.125F, 0.25F, 0.375F, 0.5F, 0.625F, 0.75F, 0.875F, 1.0F};
/// The last thresholds of the search, by what the first two said.
constexpr float g_powThresholds[4] = {A[3], A[7], A[11], A[15]};
} // namespace kovis::simd::detail
