#pragma once

#include <cmath>
#include <limits>
#include <vector>

// Values at which formulas turn.

namespace kovis::test
{
/// value and its three neighbours on either side.
inline void appendAround(std::vector<float>& values, float value)
{
    float below = value;
    float above = value;
    values.push_back(value);
    for (int i = 0; i < 3; ++i)
    {
        below = std::nextafterf(below, -HUGE_VALF);
        above = std::nextafterf(above, HUGE_VALF);
        values.insert(values.end(), {below, above});
    }
}

/// Values that are edges of every channel: zeros, denormals, infinities, NaN, and some ordinary ones.
inline std::vector<float> commonEdges()
{
    using Limits = std::numeric_limits<float>;
    std::vector<float> values{0.0F, -0.0F, 0.5F, 1.0F, -1.0F, 3.0F, 17.25F, 128.0F, 255.0F, -255.0F, Limits::quiet_NaN()};
    for (float value : {Limits::infinity(), Limits::max(), Limits::min(), Limits::denorm_min(), 1e-40F, 1e15F, 1e30F})
    {
        values.insert(values.end(), {value, -value});
    }
    return values;
}

/// Hues where the sectors meet, and far outside.
inline std::vector<float> hueEdges()
{
    std::vector<float> values = commonEdges();
    for (float hue : {-360.0F, -60.0F, 60.0F, 120.0F, 180.0F, 240.0F, 300.0F, 360.0F, 720.0F, 3019898880.0F})
    {
        appendAround(values, hue);
    }
    values.insert(values.end(), {-30.0F, 330.0F, -0.000001F, 90.0F, 210.0F});
    return values;
}
} // namespace kovis::test
