#pragma once

#include "Picture.h"
#include "PictureFile.h"

#include "KOVIS/KOVISImage/eColorGeometryType.h"

#include <string>

namespace kovis::tool
{
/// The element type of that name, written in any case. Throws ToolError (misused) for another one; the option stands at the front
/// of the message.
ElementType parseType(const std::string& option, const std::string& name);

/// The element type that the library gives a result when the caller leaves it to the library.
ElementType getLibraryType(image::eColorGeometryType from, image::eColorGeometryType to, ElementType inputType);

/// The type that a format can hold and that keeps most of what `wanted` would hold; `wanted` itself where the format can.
/// For float results it looks at the target (a hue goes to 360) and at the input (8-bit samples go to 255).
ElementType getNearestType(FileFormat format, ElementType wanted, image::eColorGeometryType to, ElementType inputType);
} // namespace kovis::tool
