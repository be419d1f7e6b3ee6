#include "ContactSheet.h"

#include "PixelFont.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>

namespace kovis::demo
{
namespace
{
using tool::ElementType;
using tool::Picture;

constexpr std::size_t g_tileSize = 192; ///< of the longer side
constexpr std::size_t g_gap = 8;
constexpr std::size_t g_maxChannels = 8;
constexpr std::size_t g_textHeight = g_letterHeight + 5;
constexpr std::uint8_t g_paper = 32;
constexpr std::uint8_t g_ink = 235;

double getSample(const Picture& picture, std::size_t channel, std::size_t index)
{
    switch (picture.shape.type)
    {
    case ElementType::eI8:
        return picture.getPlane<std::int8_t>(0, channel)[index];
    case ElementType::eU8:
        return picture.getPlane<std::uint8_t>(0, channel)[index];
    case ElementType::eI16:
        return picture.getPlane<std::int16_t>(0, channel)[index];
    case ElementType::eU16:
        return picture.getPlane<std::uint16_t>(0, channel)[index];
    case ElementType::eI32:
        return picture.getPlane<std::int32_t>(0, channel)[index];
    case ElementType::eU32:
        return picture.getPlane<std::uint32_t>(0, channel)[index];
    case ElementType::eF32:
        break;
    }
    return static_cast<double>(picture.getPlane<float>(0, channel)[index]);
}

struct Range
{
    double minimum = 0.0;
    double maximum = 0.0;
    bool bKnown = false;
};

Range findRange(const Picture& picture, std::size_t channel)
{
    Range range;
    for (std::size_t index = 0; index < picture.shape.getPlaneSamples(); ++index)
    {
        const double sample = getSample(picture, channel, index);
        if (!std::isfinite(sample))
            continue;
        range.minimum = range.bKnown ? std::min(range.minimum, sample) : sample;
        range.maximum = range.bKnown ? std::max(range.maximum, sample) : sample;
        range.bKnown = true;
    }
    return range;
}

struct TileSize
{
    std::size_t x = 1;
    std::size_t y = 1;
};

TileSize getTileSize(const Picture& picture)
{
    const std::size_t longer = std::max(picture.shape.sizeX, picture.shape.sizeY);
    return {std::max<std::size_t>(1, picture.shape.sizeX * g_tileSize / longer),
            std::max<std::size_t>(1, picture.shape.sizeY * g_tileSize / longer)};
}

void drawTile(Canvas& canvas, std::size_t left, std::size_t top, const Picture& picture, std::size_t channel)
{
    const Range range = findRange(picture, channel);
    std::array<char, 80> text = {};
    std::snprintf(text.data(), text.size(), "%zu: %.5g..%.5g", channel, range.minimum, range.maximum);
    drawText(canvas, left, top, range.bKnown ? text.data() : "no finite value", g_ink);

    const TileSize tile = getTileSize(picture);
    const double width = range.maximum > range.minimum ? range.maximum - range.minimum : 1.0;
    for (std::size_t y = 0; y < tile.y; ++y)
    {
        for (std::size_t x = 0; x < tile.x; ++x)
        {
            const std::size_t index = (y * picture.shape.sizeY / tile.y) * picture.shape.sizeX + x * picture.shape.sizeX / tile.x;
            const double part = (getSample(picture, channel, index) - range.minimum) / width;
            const double grey = std::isfinite(part) ? 255.0 * std::clamp(part, 0.0, 1.0) : 0.0;
            canvas.set(left + x, top + g_textHeight + y, static_cast<std::uint8_t>(std::lround(grey)));
        }
    }
}
} // namespace

Picture makeContactSheet(const std::vector<SheetEntry>& entries)
{
    std::size_t sizeX = 3 * (g_tileSize + g_gap) + g_gap;
    std::size_t sizeY = g_gap;
    for (const SheetEntry& entry : entries)
    {
        const TileSize tile = getTileSize(entry.picture);
        const std::size_t nbTiles = std::min(entry.picture.shape.channels, g_maxChannels);
        sizeX = std::max(sizeX, nbTiles * (g_tileSize + g_gap) + g_gap);
        sizeY += 2 * g_textHeight + tile.y + g_gap;
    }

    Canvas canvas(sizeX, sizeY, g_paper);
    std::size_t top = g_gap;
    for (const SheetEntry& entry : entries)
    {
        const tool::PictureShape& shape = entry.picture.shape;
        const std::size_t nbTiles = std::min(shape.channels, g_maxChannels);
        drawText(canvas, g_gap, top,
                 entry.label + "  " + std::to_string(shape.sizeX) + " x " + std::to_string(shape.sizeY) + "  " +
                     tool::getElementName(shape.type) + "  " + std::to_string(shape.channels) + " ch",
                 g_ink);
        for (std::size_t channel = 0; channel < nbTiles; ++channel)
            drawTile(canvas, g_gap + channel * (g_tileSize + g_gap), top + g_textHeight, entry.picture, channel);
        top += 2 * g_textHeight + getTileSize(entry.picture).y + g_gap;
    }

    Picture sheet;
    sheet.shape.sizeX = sizeX;
    sheet.shape.sizeY = sizeY;
    sheet.allocate();
    std::memcpy(sheet.getPlane<std::uint8_t>(0, 0), canvas.samples.data(), canvas.samples.size());
    return sheet;
}
} // namespace kovis::demo
