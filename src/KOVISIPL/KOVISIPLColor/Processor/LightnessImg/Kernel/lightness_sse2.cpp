#include "KOVIS/KOVISSimd/TargetRegion.h"

KOVIS_TARGET_BEGIN("sse2")
#include "KOVIS/KOVISSimd/Sse2Register.h"
#include "KOVISIPL/KOVISIPLColor/Processor/LightnessImg/Kernel/LightnessLanes_sse2.h"
#include "KOVISIPL/KOVISIPLColor/Processor/LightnessImg/Kernel/lightness.h"

namespace kovis::imaproc::color::kernel
{
KOVIS_INSTANTIATE_ALL_LIGHTNESS(simd::sse2::Register)
} // namespace kovis::imaproc::color::kernel
KOVIS_TARGET_END
