#include "KOVISIPLColor/kernel/PowerAccuracy.h"

#include "KOVISIPLColor/kernel/KernelGrid.h"

#include <algorithm>
#include <atomic>
#include <bit>
#include <cmath>
#include <cstdio>
#include <limits>
#include <mutex>
#include <thread>

namespace kovis::test
{
namespace
{
constexpr std::uint32_t g_chunkLength = 32768;

/// The correctly rounded power, for results that are normal floats. The double lies within a unit of its own last place of the
/// power, so that it settles the rounding unless it lies that near to the middle between two floats; then 64 bits decide. There
/// are no exact ties: a power with one of these exponents that ends in the middle between two floats has no float as its base.
float truePower(float x, float y)
{
    const double wide = std::pow(static_cast<double>(x), static_cast<double>(y));
    constexpr std::uint64_t middle = std::uint64_t{1} << 28U;
    const std::uint64_t rest = std::bit_cast<std::uint64_t>(wide) & (2 * middle - 1);
    if (rest > middle - 8 && rest < middle + 8)
    {
        return static_cast<float>(std::pow(static_cast<long double>(x), static_cast<long double>(y)));
    }
    return static_cast<float>(wide);
}

std::uint32_t distance(float a, float b)
{
    const std::uint32_t first = std::bit_cast<std::uint32_t>(a);
    const std::uint32_t second = std::bit_cast<std::uint32_t>(b);
    return first < second ? second - first : first - second;
}

void addTo(PowerHistogram& sum, const PowerHistogram& part)
{
    for (std::size_t i = 0; i < sum.m_counts.size(); ++i)
    {
        sum.m_counts[i] += part.m_counts[i];
    }
    sum.m_worst = std::max(sum.m_worst, part.m_worst);
    if (part.m_firstBeyondOne != 0.0F && (sum.m_firstBeyondOne == 0.0F || part.m_firstBeyondOne < sum.m_firstBeyondOne))
    {
        sum.m_firstBeyondOne = part.m_firstBeyondOne;
    }
}

void measureChunk(const PowerRange& range, const std::vector<float>& bases, std::vector<PowerHistogram>& histograms)
{
    // Whole blocks; what fills the last one is not counted.
    std::vector<float> padded = bases;
    padded.resize((bases.size() + 31) / 32 * 32, 1.0F);
    std::vector<float> results(padded.size());
    std::vector<float> expected;
    expected.reserve(bases.size());
    for (float base : bases)
    {
        expected.push_back(truePower(base, range.m_exponent) * range.m_factor);
    }
    for (PowerHistogram& histogram : histograms)
    {
        histogram.m_power->m_power(range.m_exponent, padded.size(), padded.data(), results.data());
        for (std::size_t i = 0; i < bases.size(); ++i)
        {
            const std::uint32_t units = distance(results[i], expected[i]);
            ++histogram.m_counts[std::min<std::uint32_t>(units, 4)];
            histogram.m_worst = std::max(histogram.m_worst, units);
            if (units > 1 && (histogram.m_firstBeyondOne == 0.0F || bases[i] < histogram.m_firstBeyondOne))
            {
                histogram.m_firstBeyondOne = bases[i];
            }
        }
    }
}

float above(float base)
{
    return std::nextafterf(base, std::numeric_limits<float>::max());
}

/// The base whose power is 2 to the exponent log2Result, and floats that lie surely on one side of it.
double baseOf(double log2Result, float y)
{
    return std::exp2(log2Result / static_cast<double>(y));
}
float justBelow(double log2Result, float y)
{
    return static_cast<float>(baseOf(log2Result, y) * (1.0 - 1e-6));
}
float justAbove(double log2Result, float y)
{
    return static_cast<float>(baseOf(log2Result, y) * (1.0 + 1e-6));
}
} // namespace

const std::vector<PowerRange>& powerRanges()
{
    constexpr float third = 0.33333334F;
    constexpr float threshold = 0.008856452F;
    constexpr float branch = 0.0904739F; // (0.04045 + 0.055) / 1.055
    constexpr float turn = 0.20689656F;
    constexpr float greatest = std::numeric_limits<float>::max();
    // Results lose a factor of 2 a sixteenth of an octave before 2^127, another one a sixteenth before 2^128.
    constexpr double whole = 127.0 - 0.0625;
    constexpr double halved = 128.0 - 0.0625;
    static const std::vector<PowerRange> g_ranges{
        {"1/3, dropped: up to the threshold", third, 0x1p-126F, threshold, 1.0F, 3},
        {"1/3, of samples: to 2^48", third, above(threshold), 0x1p48F, 1.0F, 1},
        {"1/3, beyond: to the greatest float", third, above(0x1p48F), greatest, 1.0F, 3},
        {"2.4, dropped: up to the branch point", 2.4F, 0x1p-52F, branch, 1.0F, 3},
        {"2.4, of samples: to 2^35", 2.4F, above(branch), 0x1p35F, 1.0F, 1},
        {"2.4, beyond: to 2^126.9375", 2.4F, above(0x1p35F), justBelow(whole, 2.4F), 1.0F, 3},
        {"2.4, halved: to 2^127.9375", 2.4F, justAbove(whole, 2.4F), justBelow(halved, 2.4F), 0.5F, 3},
        {"2.4, quartered: to 2^128", 2.4F, justAbove(halved, 2.4F), justBelow(128.0, 2.4F), 0.25F, 3},
        {"3, of samples: to 2^32", 3.0F, above(turn), 0x1p32F, 1.0F, 1},
        {"3, beyond: to 2^126.9375", 3.0F, above(0x1p32F), justBelow(whole, 3.0F), 1.0F, 3}};
    return g_ranges;
}

std::vector<PowerHistogram> measurePower(const PowerRange& range, std::uint32_t stride)
{
    std::vector<PowerHistogram> sums;
    for (const PowerForm& power : g_powerForms)
    {
        if (canRun(*power.m_form))
        {
            sums.push_back({&power, {}, 0, 0.0F});
        }
    }
    const std::vector<PowerHistogram> empty = sums;

    const std::uint64_t first = std::bit_cast<std::uint32_t>(range.m_from);
    const std::uint64_t last = std::bit_cast<std::uint32_t>(range.m_to);
    const std::uint64_t step = std::uint64_t{stride} * g_chunkLength;
    std::atomic<std::uint64_t> next = first;
    std::mutex mutex;
    const auto work = [&]
    {
        std::vector<PowerHistogram> parts = empty;
        std::vector<float> bases;
        for (std::uint64_t begin = next.fetch_add(step); begin <= last; begin = next.fetch_add(step))
        {
            bases.clear();
            for (std::uint64_t bits = begin; bits < begin + step && bits <= last; bits += stride)
            {
                bases.push_back(std::bit_cast<float>(static_cast<std::uint32_t>(bits)));
            }
            measureChunk(range, bases, parts);
        }
        const std::lock_guard<std::mutex> lock(mutex);
        for (std::size_t i = 0; i < sums.size(); ++i)
        {
            addTo(sums[i], parts[i]);
        }
    };
    std::vector<std::thread> threads;
    for (unsigned int i = 1; i < std::max(1U, std::thread::hardware_concurrency()); ++i)
    {
        threads.emplace_back(work);
    }
    work();
    for (std::thread& thread : threads)
    {
        thread.join();
    }
    return sums;
}

std::string toTableRow(const PowerRange& range, const PowerHistogram& histogram)
{
    char text[256];
    std::snprintf(text, sizeof(text), "| %-36s | %-4s | %10llu | %10llu | %10llu | %8llu | %8llu | %u | %.9g |", range.m_name,
                  histogram.m_power->m_form->m_name, static_cast<unsigned long long>(histogram.m_counts[0]),
                  static_cast<unsigned long long>(histogram.m_counts[1]), static_cast<unsigned long long>(histogram.m_counts[2]),
                  static_cast<unsigned long long>(histogram.m_counts[3]), static_cast<unsigned long long>(histogram.m_counts[4]),
                  histogram.m_worst, static_cast<double>(histogram.m_firstBeyondOne));
    return text;
}
} // namespace kovis::test
