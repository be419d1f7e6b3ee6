#pragma once

#include "KOVISIPLColor/kernel/KernelSamples.h"
#include "support/ChainModel.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <random>
#include <type_traits>
#include <vector>

namespace kovis::test
{
struct SampleRange
{
    float m_least;
    float m_greatest;
};

/// Numbers that a channel of a space holds in practice.
inline SampleRange getUsualRange(image::eColorGeometryType geometry, unsigned int channel)
{
    switch (geometry)
    {
    case image::eCGT_XYZ:
        return {0.0F, 110.0F};
    case image::eCGT_CieLab:
        return channel == 0 ? SampleRange{0.0F, 100.0F} : SampleRange{-110.0F, 110.0F};
    case image::eCGT_CieLuv:
        return channel == 0 ? SampleRange{0.0F, 760.0F} : SampleRange{-300.0F, 400.0F};
    case image::eCGT_HLS:
        return channel == 0 ? SampleRange{0.0F, 360.0F} : SampleRange{0.0F, channel == 1 ? 255.0F : 1.0F};
    case image::eCGT_HSV:
        return channel == 0 ? SampleRange{0.0F, 360.0F} : SampleRange{0.0F, channel == 1 ? 1.0F : 255.0F};
    case image::eCGT_YPbPr:
        return channel == 0 ? SampleRange{0.0F, 255.0F} : SampleRange{-128.0F, 128.0F};
    default:
        return {0.0F, 255.0F};
    }
}

template <class T>
T makeUsualSample(const SampleRange& range, std::mt19937& random)
{
    const float value = std::uniform_real_distribution<float>(range.m_least, range.m_greatest)(random);
    if constexpr (std::is_same_v<T, float>)
    {
        return value;
    }
    else
    {
        const double limited =
            std::clamp(std::round(static_cast<double>(value)), static_cast<double>(std::numeric_limits<T>::min()),
                       static_cast<double>(std::numeric_limits<T>::max()));
        return static_cast<T>(limited);
    }
}

/// Pixels of a space: a third of usual numbers, a third of awkward ones, a third in which each channel may be either.
template <class T>
ModelPlanes<T> makeSpaceSamples(const ModelSpace& space, std::size_t count)
{
    const unsigned int stream = 16U * static_cast<unsigned int>(space.m_geometry);
    std::mt19937 random(sampleSeed() + stream);
    ModelPlanes<T> planes;
    for (unsigned int c = 0; c < space.m_sizeC; ++c)
    {
        std::vector<T> plane = makeSamples<T>(count, stream + c);
        for (std::size_t i = 0; i < count; ++i)
        {
            const T usual = makeUsualSample<T>(getUsualRange(space.m_geometry, c), random);
            if (i % 3 == 0 || (i % 3 == 2 && random() % 2U == 0))
            {
                plane[i] = usual;
            }
        }
        planes.push_back(std::move(plane));
    }
    return planes;
}

/// Pixels of usual numbers alone.
template <class T>
ModelPlanes<T> makeUsualPixels(const ModelSpace& space, std::size_t count)
{
    std::mt19937 random(sampleSeed() + static_cast<unsigned int>(space.m_geometry));
    ModelPlanes<T> planes(space.m_sizeC, std::vector<T>(count));
    for (unsigned int c = 0; c < space.m_sizeC; ++c)
    {
        for (T& sample : planes[c])
        {
            sample = makeUsualSample<T>(getUsualRange(space.m_geometry, c), random);
        }
    }
    return planes;
}
} // namespace kovis::test
