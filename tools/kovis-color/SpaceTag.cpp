#include "SpaceTag.h"

#include "ColourSpace.h"

namespace kovis::tool
{
namespace
{
constexpr const char* g_start = "colour space: ";
} // namespace

std::string makeSpaceTag(image::eColorGeometryType space)
{
    return g_start + std::string(getSpaceName(space));
}

std::string noteOnSpaceTag(const std::string& description, image::eColorGeometryType readAs)
{
    if (description.rfind(g_start, 0) != 0 || description == makeSpaceTag(readAs))
        return {};
    return "it is read as " + std::string(getSpaceName(readAs)) + ", but by its own words holds '" + description +
           "'; --from says otherwise";
}
} // namespace kovis::tool
