#pragma once

#include "KOVIS/KOVISSimd/Forms.h"

// The kernel of the lightness as code outside target regions sees it: a declaration alone. The definition stands in lightness.h,
// which units that instantiate it include inside a target region. Register names the form (FormOf).

namespace kovis::imaproc::color::kernel
{
/// One plane of count pixels from nbChannels planes of them, by the formula that an eLightnessType's number names: 0 the mean, 1
/// the middle between least and greatest, everything else the weighted sum of planes 0, 1 and 2, which must be there. Works in
/// whole blocks: 16 pixels (SSE2), 32 (AVX, AVX2), 64 (AVX512), exactly count (generic). Planes need room up to the next whole
/// block. Cannot fail.
template <class Register, class T>
void lightness(int formula, unsigned long nbChannels, unsigned long count, const T* const* in, T* out);
} // namespace kovis::imaproc::color::kernel
