#include "KOVIS/KOVISSimd/TargetRegion.h"

KOVIS_TARGET_BEGIN("avx")
#include "KOVIS/KOVISSimd/AvxRegister.h"
#include "support/powPlane.h"

namespace kovis::test
{
KOVIS_INSTANTIATE_POWER_UNDER_TEST(simd::avx::Register)
} // namespace kovis::test
KOVIS_TARGET_END
