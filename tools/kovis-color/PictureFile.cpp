#include "PictureFile.h"

#include "InputFile.h"
#include "JpegFile.h"
#include "OutputFile.h"
#include "PngFile.h"
#include "TiffFile.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstring>
#include <filesystem>

namespace kovis::tool
{
namespace
{
constexpr const char* g_outputAdvice = "end the name in .tif, .tiff, .png, .jpg or .jpeg";

bool startsWith(const std::array<unsigned char, 8>& bytes, const char* magic, std::size_t length)
{
    return std::memcmp(bytes.data(), magic, length) == 0;
}

bool isTiff(const std::array<unsigned char, 8>& bytes)
{
    return startsWith(bytes, "II*\0", 4) || startsWith(bytes, "MM\0*", 4) || startsWith(bytes, "II+\0", 4) ||
           startsWith(bytes, "MM\0+", 4);
}
} // namespace

const char* getFormatName(FileFormat format)
{
    switch (format)
    {
    case FileFormat::eTiff:
        return "TIFF";
    case FileFormat::ePng:
        return "PNG";
    case FileFormat::eJpeg:
        break;
    }
    return "JPEG";
}

Picture readPicture(const std::string& path, const ReadLimits& limits)
{
    const InputFile file(path, limits);
    std::array<unsigned char, 8> magic = {};
    if (file.read(magic.data(), magic.size()) < 0)
        throw ToolError(path, "cannot be read", "check the disk");
    file.rewind();

    try
    {
        if (isTiff(magic))
            return readTiff(file);
        if (startsWith(magic, "\x89PNG\r\n\x1a\n", 8))
            return readPng(file);
        if (startsWith(magic, "\xff\xd8\xff", 3))
            return readJpeg(file);
    }
    catch (const std::bad_alloc&)
    {
        throw ToolError(path, "needs more memory than there is", "cut the picture into parts");
    }
    throw ToolError(path, "is not a TIFF, PNG or JPEG file", "give a picture of one of these formats");
}

FileFormat getOutputFormat(const std::string& path)
{
    std::string extension = std::filesystem::path(path).extension().string();
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
    if (extension == ".tif" || extension == ".tiff")
        return FileFormat::eTiff;
    if (extension == ".png")
        return FileFormat::ePng;
    if (extension == ".jpg" || extension == ".jpeg")
        return FileFormat::eJpeg;
    throw ToolError(path,
                    extension.empty() ? "has no extension that tells the format" : "has an extension that names no known format",
                    g_outputAdvice, eMisused);
}

bool canHoldType(FileFormat format, ElementType type)
{
    switch (format)
    {
    case FileFormat::eTiff:
        return true;
    case FileFormat::ePng:
        return type == ElementType::eU8 || type == ElementType::eU16;
    case FileFormat::eJpeg:
        break;
    }
    return type == ElementType::eU8;
}

void checkCanHold(const std::string& path, FileFormat format, std::size_t channels, std::size_t pages)
{
    const std::string name = getFormatName(format);
    bool bChannels = channels >= 1 && channels <= 65535;
    if (format == FileFormat::ePng)
        bChannels = channels >= 1 && channels <= 4;
    else if (format == FileFormat::eJpeg)
        bChannels = channels == 1 || channels == 3;
    if (!bChannels)
        throw ToolError(path, name + " cannot hold " + std::to_string(channels) + " channel(s)", "write a .tif instead");
    if (pages != 1 && format != FileFormat::eTiff)
        throw ToolError(path, name + " cannot hold " + std::to_string(pages) + " pages", "write a .tif instead");
}

void writePicture(const std::string& path, const PictureView& picture)
{
    const FileFormat format = getOutputFormat(path);
    checkCanHold(path, format, picture.shape.channels, picture.shape.pages);
    if (!canHoldType(format, picture.shape.type))
        throw ToolError(path,
                        std::string(getFormatName(format)) + " cannot hold samples of type " + getElementName(picture.shape.type),
                        "write a .tif or choose another --type");
    OutputFile file(path);
    switch (format)
    {
    case FileFormat::eTiff:
        writeTiff(path, file.getDescriptor(), picture);
        break;
    case FileFormat::ePng:
        writePng(path, file.getDescriptor(), picture);
        break;
    case FileFormat::eJpeg:
        writeJpeg(path, file.getDescriptor(), picture);
        break;
    }
    file.commit();
}
} // namespace kovis::tool
