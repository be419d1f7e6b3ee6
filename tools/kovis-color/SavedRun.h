#pragma once

#include "KOVIS/KOVISBaseProcessing/BaseProcessor.h"

#include <boost/shared_ptr.hpp>

#include <string>

namespace kovis::tool
{
/// What a file of --save keeps: a processor without its images, and what the program was told beside it.
struct SavedRun
{
    boost::shared_ptr<processor::BaseProcessor> processor;
    std::string from; ///< space that the input was read in; empty where its channels said it
    std::string type; ///< element type that was asked for; empty for none
};

/// Writes the file, or throws ToolError and leaves what was there.
void writeSavedRun(const std::string& path, const SavedRun& saved);

/// Reads a file of --save, or an archive with one object that the library wrote. Throws ToolError for a file that cannot be read,
/// and for one that is something else, with the archive's own words on section and key.
SavedRun readSavedRun(const std::string& path);
} // namespace kovis::tool
