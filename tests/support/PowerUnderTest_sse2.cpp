#include "KOVIS/KOVISSimd/TargetRegion.h"
#include "support/PowerUnderTest.h"

KOVIS_TARGET_BEGIN("sse2")
#include "KOVIS/KOVISSimd/Sse2Register.h"
#include "support/powPlane.h"

namespace kovis::test
{
void powSse2(float y, unsigned long count, const float* x, float* out)
{
    powPlane<simd::sse2::Register>(y, count, x, out);
}
} // namespace kovis::test
KOVIS_TARGET_END
