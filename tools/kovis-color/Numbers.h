#pragma once

#include "Picture.h"
#include "PictureFile.h"

#include "KOVIS/KOVISImage/eColorGeometryType.h"

#include <string>

namespace kovis::tool
{
/// The element type that the library gives a result when the caller leaves it to the library.
ElementType getLibraryType(image::eColorGeometryType from, image::eColorGeometryType to, ElementType inputType);

/// The type that a format can hold and that keeps most of what `wanted` would hold; `wanted` itself where the format can.
/// For float results it looks at the target (a hue goes to 360) and at the input (8-bit samples go to 255).
ElementType getNearestType(FileFormat format, ElementType wanted, image::eColorGeometryType to, ElementType inputType);

/// One line on the numbers of a result: the range of the target space.
std::string describeRange(image::eColorGeometryType from, image::eColorGeometryType to, ElementType resultType);

/// One line on what an integer result does to those numbers; empty for a float result.
std::string describeSaturation(image::eColorGeometryType from, image::eColorGeometryType to, ElementType resultType);
} // namespace kovis::tool
