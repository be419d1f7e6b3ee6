#pragma once

#include "KOVIS/KOVISImage/eColorGeometryType.h"
#include "KOVISIPL/KOVISIPLColor/KOVISIPLColorExport.h"

#include <vector>

namespace kovis::imaproc::color
{
/// The spaces that a conversion passes through, source and target included: two to four, and each neighbouring pair is one link
/// with a kernel of its own. One space alone stands for a plain copy: source and target are the same, and not eCGT_User, which
/// is led to itself by a matrix. It is the route that every conversion takes. Safe to call from any thread.
KOVISIPLCOLOR_EXPORT std::vector<image::eColorGeometryType> getConversionRoute(const image::eColorGeometryType& from,
                                                                               const image::eColorGeometryType& to);
} // namespace kovis::imaproc::color
