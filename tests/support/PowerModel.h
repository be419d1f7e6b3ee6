#pragma once

#include "support/ModelForm.h"

#include <cstdint>

namespace kovis::test
{
/// x to the exponent y as the form computes it: the standard library's powf in the generic form, else a table of sixteenths of an
/// octave and two polynomials, with the special values laid over in their order.
float modelPower(const ModelForm& form, float x, float y);

/// v cut down to a whole number of sixteenths.
float modelReduc(const ModelForm& form, float v);

/// 2 to the exponent -i / 16, for i from 0 to 16: the table that the mantissa is searched in.
float modelPowerTable(int i);

/// What the tables hold at the even place that the search finds for a mantissa from 0.5 up to 1.
struct ModelPowerPlace
{
    int m_i;
    float m_a;
    float m_b;
    float m_aInverse;
};
ModelPowerPlace modelPowerPlace(float m);

/// The entry of the table and the power of 2, from -126 to 127, that make 2 to the exponent k / 16.
struct ModelPowerSplit
{
    float m_entry;
    float m_scale;
};
ModelPowerSplit modelPowerSplit(std::int64_t k);
} // namespace kovis::test
