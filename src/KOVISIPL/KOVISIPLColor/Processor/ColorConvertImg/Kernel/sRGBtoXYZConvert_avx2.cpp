#include "KOVIS/KOVISSimd/TargetRegion.h"
#include "KOVISIPL/KOVISIPLColor/Processor/Kernel/PixelPairs.h"

KOVIS_TARGET_BEGIN("avx2")
#include "KOVIS/KOVISSimd/Avx2Register.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/Kernel/sRGBtoXYZConvert.h"

namespace kovis::imaproc::color::kernel
{
KOVIS_FOR_EACH_PIXEL_PAIR(KOVIS_INSTANTIATE_SRGB_TO_XYZ_CONVERT, simd::avx2::Register)
} // namespace kovis::imaproc::color::kernel
KOVIS_TARGET_END
