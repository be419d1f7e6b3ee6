#include "KOVIS/KOVISSimd/TargetRegion.h"
#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/Kernel/AppendKernels.h"
#include "KOVISIPL/KOVISIPLColor/Processor/Kernel/PixelPairs.h"

#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/Kernel/GenericAppendPacks.h"
#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/Kernel/appendConvert.h"

namespace kovis::imaproc::color::kernel
{
KOVIS_FOR_EACH_PIXEL_PAIR(KOVIS_INSTANTIATE_APPEND_CONVERT, simd::generic::Register)
} // namespace kovis::imaproc::color::kernel
