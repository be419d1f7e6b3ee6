#pragma once

#include "KOVIS/KOVISSimd/Forms.h"

#include <type_traits>

// The kernels as code outside target regions sees them: declarations alone. The definitions stand in appendConvert.h, which units
// that instantiate kernels include inside a target region. Register names the form (FormOf).

namespace kovis::imaproc::color::kernel
{
/// Converts count pixels of one plane, in whole blocks: 16 pixels (SSE2), 32 (AVX, AVX2), 64 (AVX512), exactly count (generic).
/// Both planes need room up to the next whole block. Nothing is rounded: floats are truncated toward zero. What lies outside the
/// target's range becomes what the form's pack operations make of it.
template <class Register, class Tin, class Tout>
void appendConvert(unsigned long count, const Tin* in, Tout* out);
} // namespace kovis::imaproc::color::kernel
