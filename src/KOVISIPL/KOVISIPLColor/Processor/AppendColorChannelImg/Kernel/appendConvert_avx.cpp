#include "KOVIS/KOVISSimd/TargetRegion.h"
#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/Kernel/AppendKernels.h"

KOVIS_TARGET_BEGIN("avx")
#include "KOVIS/KOVISSimd/AvxRegister.h"
#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/Kernel/AppendPacks.h"
#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/Kernel/appendConvert.h"

// This form serves float to float alone.
namespace kovis::imaproc::color::kernel
{
KOVIS_INSTANTIATE_APPEND_CONVERT(simd::avx::Register, float, float)
} // namespace kovis::imaproc::color::kernel
KOVIS_TARGET_END
