#pragma once

#include "KOVIS/KOVISImage/eColorGeometryType.h"

#include <string>

namespace kovis::tool
{
/// The words by which a result file tells its space: "colour space: hsv".
std::string makeSpaceTag(image::eColorGeometryType space);

/// What to say of a file whose description is such a tag of another space than it is read as; empty otherwise.
std::string noteOnSpaceTag(const std::string& description, image::eColorGeometryType readAs);
} // namespace kovis::tool
