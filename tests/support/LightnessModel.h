#pragma once

#include "support/ModelForm.h"

#include <vector>

namespace kovis::test
{
/// One pixel of a lightness from its channels, in plain scalar code that shares nothing with the kernels. Formula 0 is the mean,
/// 1 the middle of the range, everything else the weighted sum of the first three.
template <class T>
T modelLightness(const ModelForm& form, int formula, const std::vector<T>& channels);
} // namespace kovis::test
