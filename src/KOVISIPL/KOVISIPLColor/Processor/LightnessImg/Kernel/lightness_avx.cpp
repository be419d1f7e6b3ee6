#include "KOVIS/KOVISSimd/TargetRegion.h"

KOVIS_TARGET_BEGIN("avx")
#include "KOVIS/KOVISSimd/AvxRegister.h"
#include "KOVISIPL/KOVISIPLColor/Processor/LightnessImg/Kernel/lightness.h"

// This form serves float alone.
namespace kovis::imaproc::color::kernel
{
KOVIS_INSTANTIATE_LIGHTNESS(simd::avx::Register, float)
} // namespace kovis::imaproc::color::kernel
KOVIS_TARGET_END
