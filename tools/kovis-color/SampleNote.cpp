#include "SampleNote.h"

#include "ChannelRange.h"
#include "Ranges.h"

#include <algorithm>
#include <vector>

namespace kovis::tool
{
namespace
{
constexpr double g_white = 255.0;

// The channels on the scale of R, G and B.
std::vector<std::size_t> getLightChannels(image::eColorGeometryType space)
{
    if (space == image::eCGT_HSV)
        return {2};
    return space == image::eCGT_HLS ? std::vector<std::size_t>{1} : std::vector<std::size_t>{0, 1, 2};
}
} // namespace

std::string noteOnSamples(const Picture& picture, image::eColorGeometryType from, image::eColorGeometryType to)
{
    const ElementType type = picture.shape.type;
    if (!WayOfNumbers(from, to).passesCurve() || type == ElementType::eU8 || type == ElementType::eI8)
        return {};
    double maximum = 0.0;
    for (const std::size_t channel : getLightChannels(from))
        maximum = std::max(maximum, measureChannel(picture, channel).maximum);
    const std::string curve = ", but the sRGB curve on the way reads 255 as white";
    if (maximum > g_white)
        return "samples go beyond 255" + curve;
    if (type == ElementType::eF32 && maximum > 0.0 && maximum <= 1.0)
        return "all samples lie within 0 to 1" + curve + ", so that the result is nearly black; multiply them by 255 first";
    return {};
}
} // namespace kovis::tool
