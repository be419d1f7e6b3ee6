#include "KOVIS/KOVISSimd/TargetRegion.h"
#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/Kernel/AppendKernels.h"
#include "KOVISIPL/KOVISIPLColor/Processor/Kernel/PixelPairs.h"

KOVIS_TARGET_BEGIN("avx2")
#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/Kernel/Avx2AppendPacks.h"
#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/Kernel/appendConvert.h"

namespace kovis::imaproc::color::kernel
{
KOVIS_FOR_EACH_PIXEL_PAIR(KOVIS_INSTANTIATE_APPEND_CONVERT, simd::avx2::Register)
} // namespace kovis::imaproc::color::kernel
KOVIS_TARGET_END
