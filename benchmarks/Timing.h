#pragma once

#include "KOVIS/KOVISImage/BaseImage.h"

#include <benchmark/benchmark.h>
#include <boost/shared_ptr.hpp>

#include <functional>
#include <vector>

namespace kovis::bench
{
/// An RGB-like test image: values from 0 to 255 that no branch of a formula can predict, the same on every run.
boost::shared_ptr<image::BaseImage> makeImage(unsigned long sizeX, unsigned long sizeY, const image::eColorGeometryType& geometry,
                                              const image::eImageBufferType& bufferType);

/// Copies every plane of `from` over the plane of `to` of the same channel, as many bytes as the smaller of both has.
void copyPlanes(const image::BaseImage& from, image::BaseImage& to);

/// Plain work that something is compared with.
struct Reference
{
    const char* m_name;
    std::function<void()> m_work;
};

/// Times `work` in turn with the references, and reports pixels per second of all, as pixels/s and <name>_pixels/s, and how near
/// `work` comes to each, as ratio_to_<name>. A reference that is slower than `work` gets as much time, and so fewer turns.
void runBeside(benchmark::State& state, const std::function<void()>& work, const std::vector<Reference>& references,
               unsigned long nbPixels);

/// Times `work` in turn with a plain copy from `from` to `to`, and reports pixels per second of both and their ratio.
void runBesideCopy(benchmark::State& state, const std::function<void()>& work, const image::BaseImage& from,
                   image::BaseImage& to);
} // namespace kovis::bench
