#pragma once

#include "Picture.h"

#include "KOVIS/KOVISImage/eColorGeometryType.h"

#include <cstddef>
#include <string>

namespace kovis::tool
{
/// The name of a space on the command line: "grey", "rgb", ...
const char* getSpaceName(image::eColorGeometryType space);

/// The space of that name, written in any case. Throws ToolError (misused), with the nearest name, for another one; the
/// option stands at the front of the message.
image::eColorGeometryType parseSpace(const std::string& option, const std::string& name);

/// All names, separated by ", ".
std::string getSpaceNames();

/// What the channel count says: grey for 1, rgb for 3, rgba for 4, user for any other.
image::eColorGeometryType getDefaultSpace(std::size_t channels);

/// Channels of a space; 0 for user, which has any.
std::size_t getSpaceChannels(image::eColorGeometryType space);

/// Whether the space's first channel is a hue in degrees.
bool hasHue(image::eColorGeometryType space);

/// A channel's short name, as "H"; its number from 0 for a user space.
std::string getChannelName(image::eColorGeometryType space, std::size_t channel);

/// The name of `names` that is the least number of edits away from `word`, letters' case left out.
std::string findNearest(const std::string& word, const char* const* names, std::size_t nbNames);
} // namespace kovis::tool
