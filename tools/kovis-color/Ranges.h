#pragma once

#include "Picture.h"

#include "KOVIS/KOVISImage/eColorGeometryType.h"

#include <string>
#include <vector>

namespace kovis::tool
{
/// What happens to the numbers on the way, from the route that the library takes.
struct WayOfNumbers
{
    WayOfNumbers(image::eColorGeometryType from, image::eColorGeometryType to);

    bool isCopy() const { return m_route.size() == 1; }
    /// Whether the way passes the link from rgb to xyz: the sRGB curve reads samples on the scale 0 to 255 there.
    bool passesCurve() const;
    /// Whether the middle link of four spaces runs on the same planes for source and target, so that a later row reads what the
    /// rows before it wrote.
    bool isInPlace() const { return m_route.size() == 4; }
    /// Whether the library tests that all samples lie within 0 to 255.
    bool isRangeTested() const;

    std::vector<image::eColorGeometryType> m_route;
};

/// One line on the numbers that a conversion reads: what its source takes them for.
std::string describeSource(image::eColorGeometryType from, image::eColorGeometryType to, ElementType inputType);

/// One line on the numbers of a result: the range of the target space.
std::string describeRange(image::eColorGeometryType from, image::eColorGeometryType to, ElementType resultType);

/// One line on what an integer result does to those numbers; empty for a float result.
std::string describeSaturation(image::eColorGeometryType from, image::eColorGeometryType to, ElementType resultType);
} // namespace kovis::tool
