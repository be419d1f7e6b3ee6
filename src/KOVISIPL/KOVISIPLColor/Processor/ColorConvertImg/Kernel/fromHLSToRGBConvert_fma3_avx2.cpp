#include "KOVIS/KOVISSimd/TargetRegion.h"
#include "KOVISIPL/KOVISIPLColor/Processor/Kernel/PixelPairs.h"

KOVIS_TARGET_BEGIN("avx2,fma")
#include "KOVIS/KOVISSimd/Fma3Avx2Register.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/Kernel/fromHLSToRGBConvert.h"

namespace kovis::imaproc::color::kernel
{
KOVIS_FOR_EACH_PIXEL_PAIR(KOVIS_INSTANTIATE_FROM_HLS_TO_RGB_CONVERT, simd::fma3_avx2::Register)
} // namespace kovis::imaproc::color::kernel
KOVIS_TARGET_END
