#pragma once

#include "Picture.h"

#include "KOVIS/KOVISImage/eColorGeometryType.h"

#include <string>

namespace kovis::tool
{
/// What to say of samples that the sRGB curve on the way takes for something else than they seem to be: it reads the scale 0 to
/// 255, and these lie within 0 to 1, or beyond 255. Empty where there is nothing to say. Reads the picture only where the curve
/// is passed and the samples can be such ones.
std::string noteOnSamples(const Picture& picture, image::eColorGeometryType from, image::eColorGeometryType to);
} // namespace kovis::tool
