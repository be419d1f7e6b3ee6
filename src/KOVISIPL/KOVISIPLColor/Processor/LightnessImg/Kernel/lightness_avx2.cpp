#include "KOVIS/KOVISSimd/TargetRegion.h"

KOVIS_TARGET_BEGIN("avx2")
#include "KOVIS/KOVISSimd/Avx2Register.h"
#include "KOVISIPL/KOVISIPLColor/Processor/LightnessImg/Kernel/LightnessLanes_avx2.h"
#include "KOVISIPL/KOVISIPLColor/Processor/LightnessImg/Kernel/lightness.h"

namespace kovis::imaproc::color::kernel
{
KOVIS_INSTANTIATE_ALL_LIGHTNESS(simd::avx2::Register)
} // namespace kovis::imaproc::color::kernel
KOVIS_TARGET_END
