#include "Interleave.h"

#include <cstdint>
#include <cstring>

namespace kovis::tool
{
namespace
{
template <class T>
void spread(const unsigned char* source, std::size_t nbPixels, std::size_t nbChannels, unsigned char* const* planes,
            std::size_t firstPixel)
{
    for (std::size_t channel = 0; channel < nbChannels; ++channel)
    {
        unsigned char* target = planes[channel] + firstPixel * sizeof(T);
        for (std::size_t pixel = 0; pixel < nbPixels; ++pixel)
            std::memcpy(target + pixel * sizeof(T), source + (pixel * nbChannels + channel) * sizeof(T), sizeof(T));
    }
}

template <class T>
void gather(const void* const* planes, std::size_t firstPixel, std::size_t nbPixels, std::size_t nbChannels,
            unsigned char* target)
{
    for (std::size_t channel = 0; channel < nbChannels; ++channel)
    {
        const unsigned char* source = static_cast<const unsigned char*>(planes[channel]) + firstPixel * sizeof(T);
        for (std::size_t pixel = 0; pixel < nbPixels; ++pixel)
            std::memcpy(target + (pixel * nbChannels + channel) * sizeof(T), source + pixel * sizeof(T), sizeof(T));
    }
}
} // namespace

void spreadPixels(const void* source, std::size_t nbPixels, std::size_t nbChannels, std::size_t elementSize,
                  unsigned char* const* planes, std::size_t firstPixel)
{
    const auto* bytes = static_cast<const unsigned char*>(source);
    if (elementSize == 1)
        spread<std::uint8_t>(bytes, nbPixels, nbChannels, planes, firstPixel);
    else if (elementSize == 2)
        spread<std::uint16_t>(bytes, nbPixels, nbChannels, planes, firstPixel);
    else
        spread<std::uint32_t>(bytes, nbPixels, nbChannels, planes, firstPixel);
}

void gatherPixels(const void* const* planes, std::size_t firstPixel, std::size_t nbPixels, std::size_t nbChannels,
                  std::size_t elementSize, void* target)
{
    auto* bytes = static_cast<unsigned char*>(target);
    if (elementSize == 1)
        gather<std::uint8_t>(planes, firstPixel, nbPixels, nbChannels, bytes);
    else if (elementSize == 2)
        gather<std::uint16_t>(planes, firstPixel, nbPixels, nbChannels, bytes);
    else
        gather<std::uint32_t>(planes, firstPixel, nbPixels, nbChannels, bytes);
}
} // namespace kovis::tool
