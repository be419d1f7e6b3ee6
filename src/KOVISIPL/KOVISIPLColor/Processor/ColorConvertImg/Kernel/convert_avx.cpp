#include "KOVIS/KOVISSimd/TargetRegion.h"

KOVIS_TARGET_BEGIN("avx")
#include "KOVIS/KOVISSimd/AvxRegister.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/Kernel/copyConvert.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/Kernel/fromHSVToRGBConvert.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/Kernel/fromRGBToHSVConvert.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/Kernel/linearConvert.h"

// This form serves float to float alone.
namespace kovis::imaproc::color::kernel
{
KOVIS_INSTANTIATE_LINEAR_CONVERT(simd::avx::Register, float, float)
KOVIS_INSTANTIATE_COPY_CONVERT(simd::avx::Register, float, float)
KOVIS_INSTANTIATE_FROM_RGB_TO_HSV_CONVERT(simd::avx::Register, float, float)
KOVIS_INSTANTIATE_FROM_HSV_TO_RGB_CONVERT(simd::avx::Register, float, float)
} // namespace kovis::imaproc::color::kernel
KOVIS_TARGET_END
