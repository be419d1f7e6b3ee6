#include "KOVIS/KOVISSimd/TargetRegion.h"
#include "KOVISIPL/KOVISIPLColor/Processor/Kernel/PixelPairs.h"

KOVIS_TARGET_BEGIN("sse2")
#include "KOVIS/KOVISSimd/Sse2Register.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/Kernel/copyConvert.h"

namespace kovis::imaproc::color::kernel
{
KOVIS_FOR_EACH_PIXEL_PAIR(KOVIS_INSTANTIATE_COPY_CONVERT, simd::sse2::Register)
} // namespace kovis::imaproc::color::kernel
KOVIS_TARGET_END
