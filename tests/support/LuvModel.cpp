#include "support/LuvModel.h"

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

const float g_whiteY = fromBits(0x3EA875D5U);
const float g_whiteU = fromBits(0x3E4A8C15U);
const float g_whiteV = fromBits(0x3EEFC505U);
const float g_third = fromBits(0x3EAAAAABU);
} // namespace

LuvConstants modelLuvConstants(const ModelForm& form)
{
    if (!form.m_bTablePower)
    {
        return {fromBits(0x3C111AA8U), fromBits(0x4461D2F8U), fromBits(0x3A911AA8U)};
    }
    return {modelPower(form, 0.206896558F, 3.0F), modelPower(form, 9.66666698F, 3.0F), modelPower(form, 0.103448279F, 3.0F)};
}

ModelPixel modelLuvFromXYZ(const ModelForm& form, const ModelPixel& xyz)
{
    const LuvConstants constants = modelLuvConstants(form);
    const float y = xyz[1] / g_whiteY;
    // A NaN is no more than 0 here, but not at most the threshold: its L is -16.
    const float p = modelPower(form, modelGreater(y, 0.0F), g_third);
    const float l = y <= constants.m_threshold ? y * constants.m_slope : modelMulAdd(form, p, 116.0F, -16.0F);

    // Nothing guards the divisor: black gives 0 / 0.
    const float d = modelMulAdd(form, 3.0F, xyz[2], modelMulAdd(form, 15.0F, xyz[1], xyz[0]));
    const float u = (4.0F * xyz[0]) / d;
    const float v = (9.0F * xyz[1]) / d;
    return {l, ((u - g_whiteU) * l) * 13.0F, ((v - g_whiteV) * l) * 13.0F};
}

ModelPixel modelXYZFromLuv(const ModelForm& form, const ModelPixel& luv)
{
    const float l = luv[0];
    const float t = (l + 16.0F) / 116.0F;
    const float ratio = l <= 8.0F ? l * modelLuvConstants(form).m_inverseSlope : modelPower(form, t, 3.0F);
    const float y = ratio * g_whiteY;

    const float w = l * 13.0F;
    const float u = luv[1] / w + g_whiteU;
    const float v = luv[2] / w + g_whiteV;
    const float q = 4.0F * v;
    const float x = ((9.0F * u) / q) * y;
    const float rest = modelNegMulAdd(form, 20.0F, v, modelNegMulAdd(form, 3.0F, u, 12.0F));
    return {x, y, (rest / q) * y};
}
} // namespace kovis::test
