#pragma once

namespace kovis::imaproc::color::details
{
/// Throws KOVISIPLColorException, logged before: a strip has fewer than the three channels that the luminosity reads.
[[noreturn]] void throwTooFewChannels(unsigned long nbChannels);
} // namespace kovis::imaproc::color::details
