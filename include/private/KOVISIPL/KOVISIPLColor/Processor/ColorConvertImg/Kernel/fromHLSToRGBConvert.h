#pragma once

#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/Kernel/HLS.h"

// Included inside a target region, after a register header.

namespace kovis::imaproc::color::kernel
{
/// Planes H, L, S to planes R, G, B. Works in whole blocks up to the block's end past count.
template <class Register, class Tin, class Tout>
void fromHLSToRGBConvert(unsigned long count, const Tin** inPlanes, Tout** outPlanes)
{
    convertFromHue<Register, HLS<Register>>(count, inPlanes, outPlanes);
}
} // namespace kovis::imaproc::color::kernel

#define KOVIS_INSTANTIATE_FROM_HLS_TO_RGB_CONVERT(REGISTER, TIN, TOUT)                                                           \
    template void fromHLSToRGBConvert<REGISTER, TIN, TOUT>(unsigned long, const TIN**, TOUT**);
