#pragma once

#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/Kernel/HSV.h"

// Included inside a target region, after a register header.

namespace kovis::imaproc::color::kernel
{
/// Planes R, G, B to planes H, S, V. Works in whole blocks up to the block's end past count.
template <class Register, class Tin, class Tout>
void fromRGBToHSVConvert(unsigned long count, const Tin** inPlanes, Tout** outPlanes)
{
    convertToHue<Register, HSV<Register>>(count, inPlanes, outPlanes);
}
} // namespace kovis::imaproc::color::kernel

#define KOVIS_INSTANTIATE_FROM_RGB_TO_HSV_CONVERT(REGISTER, TIN, TOUT)                                                           \
    template void fromRGBToHSVConvert<REGISTER, TIN, TOUT>(unsigned long, const TIN**, TOUT**);
