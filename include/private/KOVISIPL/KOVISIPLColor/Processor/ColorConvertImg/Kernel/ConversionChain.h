#pragma once

#include "KOVIS/KOVISImage/eColorGeometryType.h"
#include "KOVIS/KOVISImage/eImageBufferType.h"

#include <boost/tuple/tuple.hpp>

#include <vector>

namespace kovis::imaproc::color
{
/// One space on the way of a conversion: geometry, number of channels, element type of its planes.
using ConversionStep = boost::tuple<image::eColorGeometryType, unsigned int, image::eImageBufferType>;

/// The spaces from source to target, both included: two to four entries. Those between are XYZ or RGB, three float channels.
using ConversionChain = std::vector<ConversionStep>;

/// Whether a conversion is a plain copy, without a chain.
inline bool isCopied(const image::eColorGeometryType& from, const image::eColorGeometryType& to)
{
    return from == to && from != image::eCGT_User;
}

/// The chain between two spaces that differ, or between two user spaces. Lab and Luv are reached through XYZ alone, HLS and HSV
/// through RGB alone; all others are joined directly.
ConversionChain buildConversionChain(const ConversionStep& input, const ConversionStep& output);
} // namespace kovis::imaproc::color
