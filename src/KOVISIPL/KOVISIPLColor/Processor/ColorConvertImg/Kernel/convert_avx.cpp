#include "KOVIS/KOVISSimd/TargetRegion.h"

KOVIS_TARGET_BEGIN("avx")
#include "KOVIS/KOVISSimd/AvxRegister.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/Kernel/copyConvert.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/Kernel/fromHLSToRGBConvert.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/Kernel/fromHSVToRGBConvert.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/Kernel/fromLabToXYZConvert.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/Kernel/fromLuvToXYZConvert.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/Kernel/fromRGBToHLSConvert.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/Kernel/fromRGBToHSVConvert.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/Kernel/fromXYZToLabConvert.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/Kernel/fromXYZToLuvConvert.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/Kernel/linearConvert.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/Kernel/sRGBtoXYZConvert.h"

// This form serves float to float alone.
namespace kovis::imaproc::color::kernel
{
KOVIS_INSTANTIATE_LINEAR_CONVERT(simd::avx::Register, float, float)
KOVIS_INSTANTIATE_COPY_CONVERT(simd::avx::Register, float, float)
KOVIS_INSTANTIATE_FROM_RGB_TO_HSV_CONVERT(simd::avx::Register, float, float)
KOVIS_INSTANTIATE_FROM_HSV_TO_RGB_CONVERT(simd::avx::Register, float, float)
KOVIS_INSTANTIATE_FROM_RGB_TO_HLS_CONVERT(simd::avx::Register, float, float)
KOVIS_INSTANTIATE_FROM_HLS_TO_RGB_CONVERT(simd::avx::Register, float, float)
KOVIS_INSTANTIATE_FROM_XYZ_TO_LAB_CONVERT(simd::avx::Register, float, float)
KOVIS_INSTANTIATE_FROM_LAB_TO_XYZ_CONVERT(simd::avx::Register, float, float)
KOVIS_INSTANTIATE_FROM_XYZ_TO_LUV_CONVERT(simd::avx::Register, float, float)
KOVIS_INSTANTIATE_FROM_LUV_TO_XYZ_CONVERT(simd::avx::Register, float, float)
KOVIS_INSTANTIATE_SRGB_TO_XYZ_CONVERT(simd::avx::Register, float, float)
} // namespace kovis::imaproc::color::kernel
KOVIS_TARGET_END
