#include "ColourSpace.h"

#include "ToolError.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <vector>

namespace kovis::tool
{
namespace
{
struct SpaceEntry
{
    image::eColorGeometryType space;
    const char* name;
    std::array<const char*, 4> channels;
};

// In the order of the enumeration's values.
constexpr std::array<SpaceEntry, 11> g_spaces = {{{image::eCGT_Grey, "grey", {"Y"}},
                                                  {image::eCGT_Rgb, "rgb", {"R", "G", "B"}},
                                                  {image::eCGT_Rgba, "rgba", {"R", "G", "B", "A"}},
                                                  {image::eCGT_XYZ, "xyz", {"X", "Y", "Z"}},
                                                  {image::eCGT_YPbPr, "ypbpr", {"Y", "Pb", "Pr"}},
                                                  {image::eCGT_YCbCr, "ycbcr", {"Y", "Cb", "Cr"}},
                                                  {image::eCGT_CieLab, "lab", {"L", "a", "b"}},
                                                  {image::eCGT_CieLuv, "luv", {"L", "u", "v"}},
                                                  {image::eCGT_HLS, "hls", {"H", "L", "S"}},
                                                  {image::eCGT_HSV, "hsv", {"H", "S", "V"}},
                                                  {image::eCGT_User, "user", {}}}};

std::string toLower(const std::string& text)
{
    std::string lower = text;
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
    return lower;
}

// The cost of the edits: 2 for a letter put in, left out or changed, 1 for two neighbours exchanged, the likeliest slip.
std::size_t weighEdits(const std::string& left, const std::string& right)
{
    std::vector<std::vector<std::size_t>> edits(left.size() + 1, std::vector<std::size_t>(right.size() + 1));
    for (std::size_t i = 0; i <= left.size(); ++i)
    {
        for (std::size_t j = 0; j <= right.size(); ++j)
        {
            if (i == 0 || j == 0)
            {
                edits[i][j] = 2 * (i + j);
                continue;
            }
            const std::size_t change = left[i - 1] == right[j - 1] ? 0 : 2;
            edits[i][j] = std::min({edits[i - 1][j] + 2, edits[i][j - 1] + 2, edits[i - 1][j - 1] + change});
            if (i > 1 && j > 1 && left[i - 1] == right[j - 2] && left[i - 2] == right[j - 1])
                edits[i][j] = std::min(edits[i][j], edits[i - 2][j - 2] + 1);
        }
    }
    return edits[left.size()][right.size()];
}
} // namespace

const char* getSpaceName(image::eColorGeometryType space)
{
    return g_spaces[static_cast<std::size_t>(space)].name;
}

std::string findNearest(const std::string& word, const char* const* names, std::size_t nbNames)
{
    const std::string lower = toLower(word).substr(0, 64);
    return *std::min_element(names, names + nbNames,
                             [&lower](const char* left, const char* right)
                             { return weighEdits(lower, left) < weighEdits(lower, right); });
}

image::eColorGeometryType parseSpace(const std::string& option, const std::string& name)
{
    const std::string lower = toLower(name);
    for (const SpaceEntry& entry : g_spaces)
    {
        if (lower == entry.name)
            return entry.space;
    }
    if (lower == "gray")
        return image::eCGT_Grey;
    std::array<const char*, g_spaces.size()> names = {};
    std::transform(g_spaces.begin(), g_spaces.end(), names.begin(), [](const SpaceEntry& entry) { return entry.name; });
    throw ToolError(option, "there is no colour space " + quoteWord(name),
                    "did you mean '" + findNearest(name, names.data(), names.size()) + "'? Spaces: " + getSpaceNames(), eMisused);
}

std::string getSpaceNames()
{
    std::string names;
    for (const SpaceEntry& entry : g_spaces)
        names += (names.empty() ? "" : ", ") + std::string(entry.name);
    return names;
}

image::eColorGeometryType getDefaultSpace(std::size_t channels)
{
    if (channels == 1)
        return image::eCGT_Grey;
    if (channels == 3)
        return image::eCGT_Rgb;
    return channels == 4 ? image::eCGT_Rgba : image::eCGT_User;
}

std::size_t getSpaceChannels(image::eColorGeometryType space)
{
    const SpaceEntry& entry = g_spaces[static_cast<std::size_t>(space)];
    return static_cast<std::size_t>(
        std::count_if(entry.channels.begin(), entry.channels.end(), [](const char* name) { return name != nullptr; }));
}

bool hasHue(image::eColorGeometryType space)
{
    return space == image::eCGT_HLS || space == image::eCGT_HSV;
}

std::string getChannelName(image::eColorGeometryType space, std::size_t channel)
{
    const SpaceEntry& entry = g_spaces[static_cast<std::size_t>(space)];
    return channel < getSpaceChannels(space) ? entry.channels[channel] : std::to_string(channel);
}
} // namespace kovis::tool
