#pragma once

namespace kovis::test
{
/// The way from each of the eleven spaces (a row, by its value) to each (a column).
/// -: copy, no chain; d: direct; X, R: through XYZ, RGB; XR, RX: through both, in this order.
/// Columns: Grey, Rgb, Rgba, XYZ, YPbPr, YCbCr, CieLab, CieLuv, HLS, HSV, User.
inline constexpr const char* g_conversionRoutes[11][11] = {
    {"-", "d", "d", "d", "d", "d", "X", "X", "R", "R", "d"},   // Grey
    {"d", "-", "d", "d", "d", "d", "X", "X", "d", "d", "d"},   // Rgb
    {"d", "d", "-", "d", "d", "d", "X", "X", "R", "R", "d"},   // Rgba
    {"d", "d", "d", "-", "d", "d", "d", "d", "R", "R", "d"},   // XYZ
    {"d", "d", "d", "d", "-", "d", "X", "X", "R", "R", "d"},   // YPbPr
    {"d", "d", "d", "d", "d", "-", "X", "X", "R", "R", "d"},   // YCbCr
    {"X", "X", "X", "d", "X", "X", "-", "X", "XR", "XR", "X"}, // CieLab
    {"X", "X", "X", "d", "X", "X", "X", "-", "XR", "XR", "X"}, // CieLuv
    {"R", "d", "R", "R", "R", "R", "RX", "RX", "-", "R", "R"}, // HLS
    {"R", "d", "R", "R", "R", "R", "RX", "RX", "R", "-", "R"}, // HSV
    {"d", "d", "d", "d", "d", "d", "X", "X", "R", "R", "d"},   // User
};
} // namespace kovis::test
