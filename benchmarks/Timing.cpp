#include "Timing.h"

#include "KOVIS/KOVISImage/ImageFactory.h"

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstring>
#include <random>

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

void runBesideCopy(benchmark::State& state, const std::function<void()>& work, const image::BaseImage& from, image::BaseImage& to)
{
    using Clock = std::chrono::steady_clock;
    work();
    copyPlanes(from, to);
    Clock::duration workTime{};
    Clock::duration copyTime{};
    for ([[maybe_unused]] auto iteration : state)
    {
        const Clock::time_point start = Clock::now();
        work();
        const Clock::time_point middle = Clock::now();
        copyPlanes(from, to);
        const Clock::time_point end = Clock::now();
        workTime += middle - start;
        copyTime += end - middle;
        state.SetIterationTime(getSeconds(middle - start));
    }
    const double nbPixels = static_cast<double>(from.getSizeX() * from.getSizeY()) * static_cast<double>(state.iterations());
    state.counters["pixels/s"] = nbPixels / getSeconds(workTime);
    state.counters["copy_pixels/s"] = nbPixels / getSeconds(copyTime);
    state.counters["ratio_to_copy"] = getSeconds(copyTime) / getSeconds(workTime);
}
} // namespace kovis::bench
