#pragma once

#include "support/ModelForm.h"

namespace kovis::test
{
/// x to the exponent y as the form computes it: the standard library's powf in the generic form, else a table of sixteenths of an
/// octave and two polynomials, with the special values laid over in their order.
float modelPower(const ModelForm& form, float x, float y);

/// v cut down to a whole number of sixteenths.
float modelReduc(const ModelForm& form, float v);

/// 2 to the exponent -i / 16, for i from 0 to 16: the table that the mantissa is searched in.
float modelPowerTable(int i);
} // namespace kovis::test
