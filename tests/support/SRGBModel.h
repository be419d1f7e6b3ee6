#pragma once

#include "support/ModelForm.h"

namespace kovis::test
{
/// The linear value of an sRGB sample on the scale 0 to 255, on the scale 0 to 100.
float modelSRGBCurve(const ModelForm& form, float sample);
} // namespace kovis::test
