#pragma once

namespace kovis::imaproc::color::kernel
{
/// Picks the operation of a pixel type.
template <class T>
struct PixelTag
{
};

/// What the lightness needs of a form beyond its register: minimum and maximum of pixels in lanes of their own width, and the
/// conversion to integers without limits. Specialised per register, in the LightnessLanes headers.
template <class Register>
struct LightnessLanes;
} // namespace kovis::imaproc::color::kernel
