#pragma once

#include "Picture.h"

#include <cstdint>
#include <string>

namespace kovis::tool
{
enum class FileFormat
{
    eTiff,
    ePng,
    eJpeg
};

/// What a file may ask for.
struct ReadLimits
{
    std::uint64_t maxBytes = std::uint64_t{8} << 30; ///< of all samples together
};

/// "TIFF", "PNG", "JPEG".
const char* getFormatName(FileFormat format);

/// Reads a whole picture. The format is told by the content. Throws ToolError for anything but a whole picture: a file
/// that is missing, cut short, damaged, of another kind, or that claims more than it holds or than the limits allow.
Picture readPicture(const std::string& path, const ReadLimits& limits = ReadLimits());

/// The format that a name asks for by its extension. Throws ToolError (misused) for an extension that names none.
FileFormat getOutputFormat(const std::string& path);

/// Whether the format can hold samples of that type.
bool canHoldType(FileFormat format, ElementType type);

/// Throws ToolError when the format cannot hold so many channels or pages. The element type is not looked at.
void checkCanHold(const std::string& path, FileFormat format, std::size_t channels, std::size_t pages);

/// Writes a picture under a temporary name and renames it. Throws ToolError when the format cannot hold the picture or the
/// file cannot be written; nothing of it is then left behind.
void writePicture(const std::string& path, const PictureView& picture);
} // namespace kovis::tool
