#include "KOVIS/KOVISSimd/TargetRegion.h"
#include "support/PowerUnderTest.h"

KOVIS_TARGET_BEGIN("avx2,fma")
#include "KOVIS/KOVISSimd/Fma3Avx2Register.h"
#include "support/powPlane.h"

namespace kovis::test
{
void powFma3(float y, unsigned long count, const float* x, float* out)
{
    powPlane<simd::fma3_avx2::Register>(y, count, x, out);
}
} // namespace kovis::test
KOVIS_TARGET_END
