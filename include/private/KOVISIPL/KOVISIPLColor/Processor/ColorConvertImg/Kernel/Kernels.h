#pragma once

#include "KOVIS/KOVISSimd/Forms.h"

// The kernels as code outside target regions sees them: declarations alone. The definitions stand in the headers of the same
// names, which units that instantiate kernels include inside a target region. Register names the form (FormOf).
//
// Each works on planes of count pixels, in whole blocks: 16 pixels (SSE2), 32 (AVX, AVX2, AVX2 with FMA3), exactly count
// (generic). Planes need room up to the next whole block. No kernel can fail.
//
// The form is a register type rather than a set's number, so that AVX2 and AVX2 with FMA3 have symbols of their own where both
// bear the number 7. The matrix is a const float* rather than the std::vector that holds it: a member of a standard template used
// inside a target region would be compiled there, and the linker keeps one copy of it for all units.

namespace kovis::imaproc::color::kernel
{
template <class Register, class Tin, class Tout>
void linearConvert(unsigned int inSizeC, unsigned int outSizeC, const float* matrix, unsigned long count, const Tin** in,
                   Tout** out);

template <class Register, class Tin, class Tout>
void copyConvert(unsigned int sizeC, unsigned long count, const Tin** in, Tout** out);

template <class Register, class Tin, class Tout>
void fromRGBToHSVConvert(unsigned long count, const Tin** inPlanes, Tout** outPlanes);

template <class Register, class Tin, class Tout>
void fromHSVToRGBConvert(unsigned long count, const Tin** inPlanes, Tout** outPlanes);

template <class Register, class Tin, class Tout>
void fromRGBToHLSConvert(unsigned long count, const Tin** inPlanes, Tout** outPlanes);

template <class Register, class Tin, class Tout>
void fromHLSToRGBConvert(unsigned long count, const Tin** inPlanes, Tout** outPlanes);

template <class Register, class Tin, class Tout>
void fromXYZToLabConvert(unsigned long count, const Tin** inPlanes, Tout** outPlanes);

template <class Register, class Tin, class Tout>
void fromLabToXYZConvert(unsigned long count, const Tin** inPlanes, Tout** outPlanes);

template <class Register, class Tin, class Tout>
void fromXYZToLuvConvert(unsigned long count, const Tin** inPlanes, Tout** outPlanes);

template <class Register, class Tin, class Tout>
void fromLuvToXYZConvert(unsigned long count, const Tin** inPlanes, Tout** outPlanes);

template <class Register, class Tin, class Tout>
void sRGBtoXYZConvert(unsigned int inSizeC, unsigned int outSizeC, const float* matrix, unsigned long count, const Tin** inPlanes,
                      Tout** outPlanes);
} // namespace kovis::imaproc::color::kernel
