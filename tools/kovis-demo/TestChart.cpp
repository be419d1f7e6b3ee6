#include "TestChart.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <numbers>

namespace kovis::demo
{
namespace
{
constexpr std::size_t g_sizeX = 768;
constexpr std::size_t g_sizeY = 512;

using Colour = std::array<double, 3>; // red, green, blue from 0 to 1

constexpr std::array<Colour, 8> g_patches = {
    {{1, 1, 1}, {1, 1, 0}, {0, 1, 1}, {0, 1, 0}, {1, 0, 1}, {1, 0, 0}, {0, 0, 1}, {0, 0, 0}}};

// Hue in degrees; each channel falls off with its distance, round the circle, from the hue where it is full.
Colour makeColour(double hue, double saturation, double value)
{
    Colour colour = {};
    for (std::size_t channel = 0; channel < 3; ++channel)
    {
        const double distance = std::abs(std::remainder(hue - 120.0 * static_cast<double>(channel), 360.0));
        const double strength = std::min(1.0, std::max(0.0, 2.0 - distance / 60.0));
        colour[channel] = value * (1.0 - saturation * (1.0 - strength));
    }
    return colour;
}

Colour makeField(double across, double down)
{
    const double hue = 360.0 * across;
    return down < 0.5 ? makeColour(hue, 2.0 * down, 1.0) : makeColour(hue, 1.0, 2.0 - 2.0 * down);
}

Colour makeCircle(double x, double y)
{
    const double radius = std::hypot(x, y);
    if (radius > 1.0)
        return {0.5, 0.5, 0.5};
    return makeColour(std::atan2(y, x) * 180.0 / std::numbers::pi, radius, 1.0);
}

Colour makeRamp(std::size_t channel, double across)
{
    Colour colour = {};
    colour[channel] = across;
    return colour;
}

Colour makeSample(std::size_t x, std::size_t y)
{
    const double across = static_cast<double>(x) / static_cast<double>(g_sizeX - 1);
    if (y < 96)
        return g_patches[x / 96];
    if (y < 352 && x >= 512)
        return makeCircle((static_cast<double>(x) - 639.5) / 124.0, (static_cast<double>(y) - 223.5) / 124.0);
    if (y < 256)
        return makeField(static_cast<double>(x) / 511.0, (static_cast<double>(y) - 96.0) / 159.0);
    if (y < 352)
        return makeRamp((y - 256) / 32, static_cast<double>(x) / 511.0);
    const double grey = y < 448 ? static_cast<double>(x / 64) / 11.0 : across;
    return {grey, grey, grey};
}
} // namespace

tool::Picture makeTestChart()
{
    tool::Picture picture;
    picture.shape.sizeX = g_sizeX;
    picture.shape.sizeY = g_sizeY;
    picture.shape.channels = 3;
    picture.shape.type = tool::ElementType::eU8;
    picture.description = "Test chart";
    picture.allocate();
    for (std::size_t y = 0; y < g_sizeY; ++y)
    {
        for (std::size_t x = 0; x < g_sizeX; ++x)
        {
            const Colour colour = makeSample(x, y);
            for (std::size_t channel = 0; channel < 3; ++channel)
                picture.getPlane<std::uint8_t>(0, channel)[y * g_sizeX + x] =
                    static_cast<std::uint8_t>(std::lround(255.0 * colour[channel]));
        }
    }
    return picture;
}
} // namespace kovis::demo
