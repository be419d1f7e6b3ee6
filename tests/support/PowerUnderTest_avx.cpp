#include "KOVIS/KOVISSimd/TargetRegion.h"
#include "support/PowerUnderTest.h"

KOVIS_TARGET_BEGIN("avx")
#include "KOVIS/KOVISSimd/AvxRegister.h"
#include "support/powPlane.h"

namespace kovis::test
{
void powAvx(float y, unsigned long count, const float* x, float* out)
{
    powPlane<simd::avx::Register>(y, count, x, out);
}
} // namespace kovis::test
KOVIS_TARGET_END
