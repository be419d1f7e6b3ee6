#pragma once

#include "support/PowerUnderTest.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

// How far the table power lies from the true one.

namespace kovis::test
{
/// The bases from m_from up to and including m_to, both positive and normal.
struct PowerRange
{
    const char* m_name;
    float m_exponent;
    float m_from;
    float m_to;
    /// What results are multiplied by: 0.5 where they come out halved.
    float m_factor;
    /// The greatest distance that is right here.
    std::uint32_t m_limit;
};

/// Distances to the correctly rounded power, in units in the last place, of one form.
struct PowerHistogram
{
    const PowerForm* m_power = nullptr;
    /// How many results lie 0, 1, 2, 3, and more units off.
    std::array<std::uint64_t, 5> m_counts{};
    std::uint32_t m_worst = 0;
    /// The least base whose result is more than one unit off; 0 where there is none.
    float m_firstBeyondOne = 0.0F;
};

/// The ranges of the bases that the kernels use, those beyond, and those whose results the kernels drop.
const std::vector<PowerRange>& powerRanges();

/// Every stride-th base of a range, for each form that this processor runs, on all processors.
std::vector<PowerHistogram> measurePower(const PowerRange& range, std::uint32_t stride);

/// A line of the table of distances.
std::string toTableRow(const PowerRange& range, const PowerHistogram& histogram);
} // namespace kovis::test
