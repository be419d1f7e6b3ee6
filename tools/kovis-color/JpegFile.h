#pragma once

#include "InputFile.h"
#include "Picture.h"

#include <string>

namespace kovis::tool
{
/// Reads a JPEG file. Throws ToolError.
Picture readJpeg(const InputFile& file);

/// Writes a JPEG file to an open descriptor, which stays open. The format must be able to hold the picture. Throws ToolError.
void writeJpeg(const std::string& path, int descriptor, const PictureView& picture);
} // namespace kovis::tool
