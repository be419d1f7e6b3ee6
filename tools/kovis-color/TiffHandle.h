#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <tiffio.h>

namespace kovis::tool
{
/// What the TIFF library had to say. It says it here and nowhere else.
struct TiffMessages
{
    std::string error;  ///< the first error
    std::string damage; ///< the first warning that means a damaged file

    void clear();
    const std::string& getText() const { return error.empty() ? damage : error; }
    bool isEmpty() const { return error.empty() && damage.empty(); }
};

struct TiffClose
{
    void operator()(TIFF* tiff) const { TIFFClose(tiff); }
};
using TiffHandle = std::unique_ptr<TIFF, TiffClose>;

/// Opens the descriptor's file, by a descriptor of its own. The messages must outlive the handle. An empty handle on failure.
TiffHandle openTiff(int descriptor, const std::string& path, const char* mode, std::uint64_t maxBytes, TiffMessages& messages);
} // namespace kovis::tool
