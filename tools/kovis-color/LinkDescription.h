#pragma once

#include "KOVIS/KOVISImage/eColorGeometryType.h"

namespace kovis::tool
{
/// A link of a route in words.
struct LinkDescription
{
    const char* kernel;  ///< the name of the function that runs it
    const char* formula; ///< in one line
    bool bMatrix;        ///< whether it reads a matrix: the library's, or the user's where one end is eCGT_User
};

/// The link between two neighbouring spaces of a route.
LinkDescription describeLink(image::eColorGeometryType from, image::eColorGeometryType to);

/// The plain copy of equal spaces.
LinkDescription describeCopy();
} // namespace kovis::tool
