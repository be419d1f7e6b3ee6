#pragma once

namespace kovis::imaproc::color::details
{
/// Throws KOVISIPLColorException, logged before: a strip processor that was driven by itself has an output of too few channels.
[[noreturn]] void throwShortOutput(unsigned long sizeC1, unsigned long sizeC2, unsigned long sizeCOut);
} // namespace kovis::imaproc::color::details
