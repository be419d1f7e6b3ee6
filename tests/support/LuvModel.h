#pragma once

#include "support/PixelModel.h"

namespace kovis::test
{
/// Planes X, Y, Z with white at Y 0.329024, and L, u, v.
ModelPixel modelLuvFromXYZ(const ModelForm& form, const ModelPixel& xyz);
ModelPixel modelXYZFromLuv(const ModelForm& form, const ModelPixel& luv);

/// The cubes that the generic form holds as constants and the other forms compute by their own power.
struct LuvConstants
{
    float m_threshold;
    float m_slope;
    float m_inverseSlope;
};
LuvConstants modelLuvConstants(const ModelForm& form);
} // namespace kovis::test
