#include "KOVIS/KOVISImage/getFormatedName.h"

namespace kovis::image
{
namespace
{
std::string getFormatedName(const BaseImageGeometry& geometry)
{
    std::string name = std::to_string(geometry.getSizeX()) + " x " + std::to_string(geometry.getSizeY());
    if (geometry.getSizeZ() != 1)
    {
        name += " x " + std::to_string(geometry.getSizeZ());
    }
    if (geometry.getSizeT() != 1)
    {
        name += ", " + std::to_string(geometry.getSizeT()) + " time steps";
    }
    name += ", " + std::to_string(geometry.getSizeC()) + (geometry.getSizeC() == 1 ? " channel, " : " channels, ");
    return name + getElementTypeName(geometry.getBufferType());
}
} // namespace

std::string getFormatedName(const BaseImage& image, const eFormatedType&)
{
    return getFormatedName(image.getGeometry());
}

std::string getFormatedName(const BaseImageFragment& fragment, const eFormatedType&)
{
    return getFormatedName(fragment.getGeometry());
}
} // namespace kovis::image
