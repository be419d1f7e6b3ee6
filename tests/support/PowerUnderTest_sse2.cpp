#include "KOVIS/KOVISSimd/TargetRegion.h"

KOVIS_TARGET_BEGIN("sse2")
#include "KOVIS/KOVISSimd/Sse2Register.h"
#include "support/powPlane.h"

namespace kovis::test
{
KOVIS_INSTANTIATE_POWER_UNDER_TEST(simd::sse2::Register)
} // namespace kovis::test
KOVIS_TARGET_END
