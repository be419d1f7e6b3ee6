#pragma once

#include <cstddef>

// Each is logged at ERROR before it is thrown.

namespace kovis::imaproc::color
{
/// Throws KOVISIPLColorException: the user matrix holds fewer values than its link reads.
[[noreturn]] void throwShortMatrix(std::size_t nbValues, unsigned int inSizeC, unsigned int outSizeC);
} // namespace kovis::imaproc::color
