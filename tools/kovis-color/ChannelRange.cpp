#include "ChannelRange.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace kovis::tool
{
namespace
{
template <class T>
ChannelRange measure(const Picture& picture, std::size_t channel)
{
    ChannelRange range;
    for (std::size_t page = 0; page < picture.shape.pages; ++page)
    {
        const T* plane = picture.getPlane<T>(page, channel);
        for (std::size_t index = 0; index < picture.shape.getPlaneSamples(); ++index)
        {
            const auto sample = static_cast<double>(plane[index]);
            if (!std::isfinite(sample))
            {
                ++range.nbOthers;
                continue;
            }
            range.minimum = range.nbFinite == 0 ? sample : std::min(range.minimum, sample);
            range.maximum = range.nbFinite == 0 ? sample : std::max(range.maximum, sample);
            ++range.nbFinite;
        }
    }
    return range;
}
} // namespace

ChannelRange measureChannel(const Picture& picture, std::size_t channel)
{
    switch (picture.shape.type)
    {
    case ElementType::eI8:
        return measure<std::int8_t>(picture, channel);
    case ElementType::eU8:
        return measure<std::uint8_t>(picture, channel);
    case ElementType::eI16:
        return measure<std::int16_t>(picture, channel);
    case ElementType::eU16:
        return measure<std::uint16_t>(picture, channel);
    case ElementType::eI32:
        return measure<std::int32_t>(picture, channel);
    case ElementType::eU32:
        return measure<std::uint32_t>(picture, channel);
    case ElementType::eF32:
        break;
    }
    return measure<float>(picture, channel);
}
} // namespace kovis::tool
