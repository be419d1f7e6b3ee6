#pragma once

#include "InputFile.h"
#include "Picture.h"

#include <string>

namespace kovis::tool
{
/// Reads a TIFF file. Throws ToolError.
Picture readTiff(const InputFile& file);

/// Writes a TIFF file to an open descriptor, which stays open. The format must be able to hold the picture. Throws ToolError.
void writeTiff(const std::string& path, int descriptor, const PictureView& picture);
} // namespace kovis::tool
