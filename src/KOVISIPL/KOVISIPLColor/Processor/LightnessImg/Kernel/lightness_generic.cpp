#include "KOVIS/KOVISSimd/TargetRegion.h"

#include "KOVIS/KOVISSimd/GenericRegister.h"
#include "KOVISIPL/KOVISIPLColor/Processor/LightnessImg/Kernel/LightnessLanes_generic.h"
#include "KOVISIPL/KOVISIPLColor/Processor/LightnessImg/Kernel/lightness.h"

namespace kovis::imaproc::color::kernel
{
KOVIS_INSTANTIATE_ALL_LIGHTNESS(simd::generic::Register)
} // namespace kovis::imaproc::color::kernel
