#include "Timing.h"

#include "KOVIS/KOVISImage/ImageFactory.h"

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstring>
#include <random>
#include <string>

namespace kovis::bench
{
namespace
{
template <class T>
void fillPlane(T* plane, std::size_t nbElements, std::mt19937& generator)
{
    // The low seven bits serve signed bytes as well.
    const unsigned int mask = sizeof(T) == 1 && T(-1) < T(0) ? 0x7FU : 0xFFU;
    for (std::size_t i = 0; i < nbElements; ++i)
    {
        plane[i] = static_cast<T>(generator() & mask);
    }
}

void* getPlane(const image::BaseImage& image, unsigned long channel)
{
    return image::detail::getPlaneData(image, image::getStorageType(image.getBufferType()), channel, 0, 0);
}

double getSeconds(std::chrono::steady_clock::duration duration)
{
    return std::chrono::duration<double>(duration).count();
}
} // namespace

boost::shared_ptr<image::BaseImage> makeImage(unsigned long sizeX, unsigned long sizeY, const image::eColorGeometryType& geometry,
                                              const image::eImageBufferType& bufferType)
{
    const auto result = image::createImage2d(sizeX, sizeY, geometry, bufferType);
    std::mt19937 generator(12345);
    const std::size_t nbElements = sizeX * sizeY;
    for (unsigned long c = 0; c < result->getSizeC(); ++c)
    {
        void* plane = getPlane(*result, c);
        switch (image::getStorageType(bufferType))
        {
        case image::eIBT_Int8:
            fillPlane(static_cast<signed char*>(plane), nbElements, generator);
            break;
        case image::eIBT_UInt8:
            fillPlane(static_cast<unsigned char*>(plane), nbElements, generator);
            break;
        case image::eIBT_Int16:
            fillPlane(static_cast<short*>(plane), nbElements, generator);
            break;
        case image::eIBT_UInt16:
            fillPlane(static_cast<unsigned short*>(plane), nbElements, generator);
            break;
        case image::eIBT_Int32:
            fillPlane(static_cast<int*>(plane), nbElements, generator);
            break;
        case image::eIBT_UInt32:
            fillPlane(static_cast<unsigned int*>(plane), nbElements, generator);
            break;
        default:
            fillPlane(static_cast<float*>(plane), nbElements, generator);
            break;
        }
    }
    return result;
}

void copyPlanes(const image::BaseImage& from, image::BaseImage& to)
{
    const std::size_t nbElements = from.getSizeX() * from.getSizeY();
    const std::size_t nbBytes =
        nbElements * std::min(image::getElementSize(from.getBufferType()), image::getElementSize(to.getBufferType()));
    for (unsigned long c = 0; c < std::min(from.getSizeC(), to.getSizeC()); ++c)
    {
        std::memcpy(getPlane(to, c), getPlane(from, c), nbBytes);
        benchmark::ClobberMemory();
    }
}

void runBeside(benchmark::State& state, const std::function<void()>& work, const std::vector<Reference>& references,
               unsigned long nbPixels)
{
    using Clock = std::chrono::steady_clock;
    struct Timed
    {
        const Reference* m_reference;
        Clock::duration m_time{};
        unsigned long m_nbRuns = 0;
    };
    std::vector<Timed> timed;
    work();
    for (const Reference& reference : references)
    {
        reference.m_work();
        timed.push_back({&reference});
    }
    Clock::duration workTime{};
    for ([[maybe_unused]] auto iteration : state)
    {
        const Clock::time_point start = Clock::now();
        work();
        Clock::time_point last = Clock::now();
        workTime += last - start;
        state.SetIterationTime(getSeconds(last - start));
        for (Timed& reference : timed)
        {
            if (reference.m_time > workTime)
            {
                continue;
            }
            last = Clock::now();
            reference.m_reference->m_work();
            reference.m_time += Clock::now() - last;
            ++reference.m_nbRuns;
        }
    }
    const double workSeconds = getSeconds(workTime) / static_cast<double>(state.iterations());
    state.counters["pixels/s"] = static_cast<double>(nbPixels) / workSeconds;
    for (const Timed& reference : timed)
    {
        const std::string name = reference.m_reference->m_name;
        const double seconds = getSeconds(reference.m_time) / static_cast<double>(reference.m_nbRuns);
        state.counters[name + "_pixels/s"] = static_cast<double>(nbPixels) / seconds;
        state.counters["ratio_to_" + name] = seconds / workSeconds;
    }
}

void runBesideCopy(benchmark::State& state, const std::function<void()>& work, const image::BaseImage& from, image::BaseImage& to)
{
    runBeside(state, work, {{"copy", [&] { copyPlanes(from, to); }}}, from.getSizeX() * from.getSizeY());
}
} // namespace kovis::bench
