#pragma once

#include "support/GuardedPlane.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <memory>
#include <random>
#include <type_traits>
#include <vector>

namespace kovis::test
{
/// The seed of all random samples; KOVIS_TEST_SEED gives another one.
unsigned int sampleSeed();

/// Floats at which a conversion can go wrong: limits of every integer type and what lies beside them, halves, the magnitudes at
/// which floats lose their fraction, zeros of both signs, denormals, infinities, NaN.
const std::vector<float>& awkwardFloats();

/// nbSamples samples of T: the awkward ones first, then ordinary numbers on several scales and random bits.
template <class T>
std::vector<T> makeSamples(std::size_t nbSamples, unsigned int stream)
{
    std::mt19937 random(sampleSeed() + 7919U * stream);
    std::vector<T> samples;
    samples.reserve(nbSamples);
    if constexpr (std::is_same_v<T, float>)
    {
        samples = awkwardFloats();
    }
    else
    {
        using Limits = std::numeric_limits<T>;
        for (long long value : {0LL,
                                1LL,
                                2LL,
                                -1LL,
                                127LL,
                                128LL,
                                255LL,
                                256LL,
                                32767LL,
                                32768LL,
                                65535LL,
                                65536LL,
                                -128LL,
                                -129LL,
                                -32768LL,
                                -32769LL,
                                16777215LL,
                                16777216LL,
                                16777217LL,
                                16777219LL,
                                -16777217LL,
                                2147483647LL,
                                2147483648LL,
                                2147483583LL,
                                2147483584LL,
                                4294967295LL,
                                4294967167LL,
                                4294967168LL,
                                static_cast<long long>(Limits::min()),
                                static_cast<long long>(Limits::max())})
        {
            if (value >= static_cast<long long>(Limits::min()) && value <= static_cast<long long>(Limits::max()))
            {
                samples.push_back(static_cast<T>(value));
            }
        }
    }
    // The streams meet each other's awkward samples in every pairing over time.
    std::shuffle(samples.begin(), samples.end(), random);
    while (samples.size() < nbSamples)
    {
        const std::uint32_t bits = static_cast<std::uint32_t>(random());
        if constexpr (std::is_same_v<T, float>)
        {
            float value = 0.0F;
            switch (random() % 5U)
            {
            case 0:
                value = static_cast<float>(bits % 25600U) / 100.0F;
                break;
            case 1:
                value = static_cast<float>(bits) / 4294967296.0F;
                break;
            case 2:
                value = static_cast<float>(static_cast<std::int32_t>(bits)) / 2097152.0F;
                break;
            case 3:
                value = static_cast<float>(bits % 256U);
                break;
            default:
                std::memcpy(&value, &bits, sizeof(value));
                break;
            }
            samples.push_back(value);
        }
        else
        {
            samples.push_back(static_cast<T>(bits));
        }
    }
    samples.resize(nbSamples);
    return samples;
}

/// nbPlanes planes that end at a guard page, and their pointers as a kernel takes them.
template <class T>
class PlaneSet
{
public:
    PlaneSet(std::size_t nbPlanes, std::size_t nbElements)
    {
        for (std::size_t c = 0; c < nbPlanes; ++c)
        {
            m_planes.push_back(std::make_unique<GuardedPlane<T>>(nbElements));
            m_pointers.push_back(m_planes.back()->data());
            m_constPointers.push_back(m_planes.back()->data());
        }
    }

    void fill(unsigned int stream)
    {
        for (std::size_t c = 0; c < m_planes.size(); ++c)
        {
            const std::vector<T> samples = makeSamples<T>(m_planes[c]->size(), stream + static_cast<unsigned int>(c));
            if (!samples.empty())
            {
                std::memcpy(m_planes[c]->data(), samples.data(), samples.size() * sizeof(T));
            }
        }
    }

    void copyFrom(const PlaneSet& other)
    {
        for (std::size_t c = 0; c < m_planes.size(); ++c)
        {
            if (m_planes[c]->size() != 0)
            {
                std::memcpy(m_planes[c]->data(), other.m_planes[c]->data(), m_planes[c]->size() * sizeof(T));
            }
        }
    }

    T** out() { return m_pointers.data(); }
    const T** in() { return m_constPointers.data(); }
    GuardedPlane<T>& operator[](std::size_t c) { return *m_planes[c]; }
    std::size_t size() const { return m_planes.size(); }

private:
    std::vector<std::unique_ptr<GuardedPlane<T>>> m_planes;
    std::vector<T*> m_pointers;
    std::vector<const T*> m_constPointers;
};

/// Counts on both sides of one and two blocks of every form, and one long enough for all samples.
inline constexpr unsigned long g_counts[] = {0, 1, 15, 16, 17, 31, 32, 33, 63, 64, 65, 4096};
} // namespace kovis::test
