#pragma once

#include "InputFile.h"
#include "Picture.h"

#include <string>

namespace kovis::tool
{
/// Reads a PNG file. Throws ToolError.
Picture readPng(const InputFile& file);

/// Writes a PNG file to an open descriptor, which stays open. The format must be able to hold the picture. Throws ToolError.
void writePng(const std::string& path, int descriptor, const PictureView& picture);
} // namespace kovis::tool
