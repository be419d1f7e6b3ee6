#pragma once

#include <cstddef>

namespace kovis::tool
{
/// Spreads nbPixels pixels, whose samples lie side by side, over planes: from source to planes[c] + firstPixel.
/// A sample has elementSize bytes: 1, 2 or 4.
void spreadPixels(const void* source, std::size_t nbPixels, std::size_t nbChannels, std::size_t elementSize,
                  unsigned char* const* planes, std::size_t firstPixel);

/// The way back: gathers the pixels from the planes, side by side into target.
void gatherPixels(const void* const* planes, std::size_t firstPixel, std::size_t nbPixels, std::size_t nbChannels,
                  std::size_t elementSize, void* target);
} // namespace kovis::tool
