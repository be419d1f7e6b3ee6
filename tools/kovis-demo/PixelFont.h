#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace kovis::demo
{
/// An 8-bit grey drawing area, row after row.
struct Canvas
{
    std::size_t sizeX = 0;
    std::size_t sizeY = 0;
    std::vector<std::uint8_t> samples;

    Canvas(std::size_t width, std::size_t height, std::uint8_t grey) : sizeX(width), sizeY(height), samples(width * height, grey)
    {
    }

    /// Sets a sample; one outside the area is left out.
    void set(std::size_t x, std::size_t y, std::uint8_t grey)
    {
        if (x < sizeX && y < sizeY)
            samples[y * sizeX + x] = grey;
    }
};

constexpr std::size_t g_letterWidth = 6; ///< five columns and a gap
constexpr std::size_t g_letterHeight = 7;

/// Writes text with its upper left corner at (x, y). Capital letters, digits and some signs; others are drawn as a box.
void drawText(Canvas& canvas, std::size_t x, std::size_t y, const std::string& text, std::uint8_t grey);
} // namespace kovis::demo
