#include "KOVIS/KOVISSimd/TargetRegion.h"

KOVIS_TARGET_BEGIN("avx2")
#include "KOVIS/KOVISSimd/Avx2Register.h"
#include "support/powPlane.h"

namespace kovis::test
{
KOVIS_INSTANTIATE_POWER_UNDER_TEST(simd::avx2::Register)
} // namespace kovis::test
KOVIS_TARGET_END
