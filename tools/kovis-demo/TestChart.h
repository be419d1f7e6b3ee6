#pragma once

#include "Picture.h"

namespace kovis::demo
{
/// A test chart of 768 x 512 8-bit RGB samples: full-strength colours, hue against saturation and value, a hue circle,
/// ramps of red, green and blue, grey steps and a grey ramp.
tool::Picture makeTestChart();
} // namespace kovis::demo
