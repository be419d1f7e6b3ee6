#pragma once

#include "KOVIS/KOVISImage/eColorGeometryType.h"

#include <cstddef>

// Each is logged at ERROR before it is thrown.

namespace kovis::imaproc::color
{
/// Throws KOVISIPLColorException: the link between the two spaces needs kernels that this version lacks.
[[noreturn]] void throwMissingKernels(const image::eColorGeometryType& from, const image::eColorGeometryType& to,
                                      const char* family);

/// Throws KOVISIPLColorException: the user matrix holds fewer values than its link reads.
[[noreturn]] void throwShortMatrix(std::size_t nbValues, unsigned int inSizeC, unsigned int outSizeC);
} // namespace kovis::imaproc::color
