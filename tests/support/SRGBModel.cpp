#include "support/SRGBModel.h"

#include "support/PowerModel.h"

namespace kovis::test
{
float modelSRGBCurve(const ModelForm& form, float sample)
{
    const float v = sample / 255.0F;
    if (v > 0.04045F)
    {
        const float shifted = v + 0.055F;
        return modelPower(form, shifted / 1.055F, 2.4F) * 100.0F;
    }
    const float linear = v / 12.92F;
    return linear * 100.0F;
}
} // namespace kovis::test
