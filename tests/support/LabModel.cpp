#include "support/LabModel.h"

#include "support/PowerModel.h"

#include <bit>
#include <cstdint>

namespace kovis::test
{
namespace
{
float fromBits(std::uint32_t bits)
{
    return std::bit_cast<float>(bits);
}

const float g_whiteX = fromBits(0x42BE1810U);
const float g_whiteY = fromBits(0x42C80000U);
const float g_whiteZ = fromBits(0x42D9C419U);
const float g_threshold = fromBits(0x3C111AA7U);
const float g_inverseThreshold = fromBits(0x3E53DCB1U);
// One unit in the last place above the float nearest to 3 (6/29)^2, and meant so.
const float g_slope = fromBits(0x3E038028U);
const float g_offset = fromBits(0x3E0D3DCBU);
const float g_third = fromBits(0x3EAAAAABU);

float curve(const ModelForm& form, float ratio)
{
    if (ratio > g_threshold)
    {
        return modelPower(form, ratio, g_third);
    }
    const float quotient = ratio / g_slope;
    return quotient + g_offset;
}

/// f decides; below the threshold it is the value linearValue that goes on.
float inverseCurve(float f, float linearValue)
{
    if (f > g_inverseThreshold)
    {
        const float square = f * f;
        return square * f;
    }
    const float difference = linearValue - g_offset;
    return difference * g_slope;
}
} // namespace

ModelPixel modelLabFromXYZ(const ModelForm& form, const ModelPixel& xyz)
{
    const float fx = curve(form, xyz[0] / g_whiteX);
    const float fy = curve(form, xyz[1] / g_whiteY);
    const float fz = curve(form, xyz[2] / g_whiteZ);
    return {modelMulAdd(form, 116.0F, fy, -16.0F), (fx - fy) * 500.0F, (fy - fz) * 200.0F};
}

ModelPixel modelXYZFromLab(const ModelPixel& lab)
{
    const float fy = (lab[0] + 16.0F) / 116.0F;
    const float fx = lab[1] / 500.0F + fy;
    const float fz = fy - lab[2] / 200.0F;
    // The linear branch of X and Z takes the channels a and b themselves, that of Y takes fy.
    return {inverseCurve(fx, lab[1]) * g_whiteX, inverseCurve(fy, fy) * g_whiteY, inverseCurve(fz, lab[2]) * g_whiteZ};
}
} // namespace kovis::test
