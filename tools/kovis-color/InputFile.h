#pragma once

#include "Picture.h"
#include "PictureFile.h"
#include "ToolError.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace kovis::tool
{
/// An open file that is read: a picture, or what --save kept.
class InputFile
{
public:
    /// Opens it. Throws ToolError for a file that is missing, empty, no plain file or not readable; `whatToGive` is its advice.
    InputFile(const std::string& path, const ReadLimits& limits, const std::string& whatToGive = "give a TIFF, PNG or JPEG file");
    ~InputFile();
    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;

    const std::string& getPath() const { return m_path; }
    int getDescriptor() const { return m_descriptor; }
    std::uint64_t getSize() const { return m_size; }
    const ReadLimits& getLimits() const { return m_limits; }

    /// Reads up to nbBytes from the current place; less only at the file's end. Returns -1 on an error.
    std::int64_t read(void* buffer, std::size_t nbBytes) const;

    /// Goes back to the start.
    void rewind() const;

    /// Refuses a shape of size zero, of more bytes than the limits allow, or of more than maxExpansion times the file's
    /// size (0: any), before memory is asked for.
    void checkClaim(const PictureShape& shape, std::uint64_t maxExpansion) const;

    /// The error of a damaged or shortened file; the detail is what the decoder said of it, and may be empty.
    ToolError makeDamageError(const std::string& detail) const;

private:
    std::string m_path;
    ReadLimits m_limits;
    int m_descriptor = -1;
    std::uint64_t m_size = 0;
};
} // namespace kovis::tool
