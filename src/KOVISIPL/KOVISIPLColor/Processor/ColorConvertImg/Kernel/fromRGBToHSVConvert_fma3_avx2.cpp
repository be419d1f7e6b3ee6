#include "KOVIS/KOVISSimd/TargetRegion.h"
#include "KOVISIPL/KOVISIPLColor/Processor/Kernel/PixelPairs.h"

KOVIS_TARGET_BEGIN("avx2,fma")
#include "KOVIS/KOVISSimd/Fma3Avx2Register.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/Kernel/fromRGBToHSVConvert.h"

namespace kovis::imaproc::color::kernel
{
KOVIS_FOR_EACH_PIXEL_PAIR(KOVIS_INSTANTIATE_FROM_RGB_TO_HSV_CONVERT, simd::fma3_avx2::Register)
} // namespace kovis::imaproc::color::kernel
KOVIS_TARGET_END
