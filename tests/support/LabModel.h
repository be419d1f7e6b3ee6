#pragma once

#include "support/PixelModel.h"

namespace kovis::test
{
/// Planes X, Y, Z on the scale 0 to 100, and L, a, b.
ModelPixel modelLabFromXYZ(const ModelForm& form, const ModelPixel& xyz);
ModelPixel modelXYZFromLab(const ModelPixel& lab);
/// No step of the way back differs between the forms.
inline ModelPixel modelXYZFromLab(const ModelForm&, const ModelPixel& lab)
{
    return modelXYZFromLab(lab);
}
} // namespace kovis::test
