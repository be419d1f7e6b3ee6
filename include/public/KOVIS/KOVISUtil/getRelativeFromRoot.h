#pragma once

#include "KOVIS/KOVISUtil/KOVISUtilExport.h"

#include <boost/filesystem/path.hpp>

namespace kovis
{
/// `path` relative to `root`, or an empty path if it does not lie under it. Compares names only; touches no file.
KOVISUTIL_EXPORT boost::filesystem::path getRelativeFromRoot(const boost::filesystem::path& root,
                                                             const boost::filesystem::path& path);
} // namespace kovis
