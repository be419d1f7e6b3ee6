#include "KOVIS/KOVISSimd/TargetRegion.h"
#include "KOVISIPL/KOVISIPLColor/Processor/Kernel/PixelPairs.h"

#include "KOVIS/KOVISSimd/GenericRegister.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/Kernel/fromHSVToRGBConvert.h"

namespace kovis::imaproc::color::kernel
{
KOVIS_FOR_EACH_PIXEL_PAIR(KOVIS_INSTANTIATE_FROM_HSV_TO_RGB_CONVERT, simd::generic::Register)
} // namespace kovis::imaproc::color::kernel
