#include "KOVIS/KOVISSimd/TargetRegion.h"

KOVIS_TARGET_BEGIN("avx512f,avx512bw,avx512dq,avx512vl")
#include "KOVIS/KOVISSimd/Avx512Register.h"
#include "KOVISIPL/KOVISIPLColor/Processor/LightnessImg/Kernel/LightnessLanes_avx512.h"
#include "KOVISIPL/KOVISIPLColor/Processor/LightnessImg/Kernel/lightness.h"

namespace kovis::imaproc::color::kernel
{
KOVIS_INSTANTIATE_ALL_LIGHTNESS(simd::avx512::Register)
} // namespace kovis::imaproc::color::kernel
KOVIS_TARGET_END
