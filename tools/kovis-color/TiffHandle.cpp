#include "TiffHandle.h"

#include <algorithm>
#include <array>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <limits>
#include <unistd.h>

namespace kovis::tool
{
namespace
{
std::string format(const char* module, const char* text, va_list arguments)
{
    std::array<char, 512> buffer = {};
    std::vsnprintf(buffer.data(), buffer.size(), text, arguments);
    return module == nullptr ? std::string(buffer.data()) : std::string(module) + ": " + buffer.data();
}

int keepError(TIFF*, void* userData, const char* module, const char* text, va_list arguments)
{
    auto* messages = static_cast<TiffMessages*>(userData);
    if (messages->error.empty())
        messages->error = format(module, text, arguments);
    return 1;
}

// Most warnings speak of unknown tags. Those of these two decoders mean that samples were made up, and a tag that cannot be
// fetched lies past the end of a shortened file.
int keepDamage(TIFF*, void* userData, const char* module, const char* text, va_list arguments)
{
    auto* messages = static_cast<TiffMessages*>(userData);
    const bool bSamples =
        module != nullptr && (std::strcmp(module, "JPEGLib") == 0 || std::strcmp(module, "PackBitsDecode") == 0);
    const bool bDamage = bSamples || std::strncmp(text, "IO error", 8) == 0;
    if (bDamage && messages->damage.empty())
        messages->damage = format(module, text, arguments);
    return 1;
}
} // namespace

void TiffMessages::clear()
{
    error.clear();
    damage.clear();
}

TiffHandle openTiff(int descriptor, const std::string& path, const char* mode, std::uint64_t maxBytes, TiffMessages& messages)
{
    const int ownDescriptor = ::dup(descriptor);
    if (ownDescriptor < 0)
        return nullptr;
    const std::unique_ptr<TIFFOpenOptions, decltype(&TIFFOpenOptionsFree)> options(TIFFOpenOptionsAlloc(), &TIFFOpenOptionsFree);
    if (options)
    {
        const auto limit = std::min<std::uint64_t>(maxBytes, static_cast<std::uint64_t>(std::numeric_limits<tmsize_t>::max()));
        TIFFOpenOptionsSetMaxSingleMemAlloc(options.get(), static_cast<tmsize_t>(limit));
        TIFFOpenOptionsSetErrorHandlerExtR(options.get(), keepError, &messages);
        TIFFOpenOptionsSetWarningHandlerExtR(options.get(), keepDamage, &messages);
    }
    TiffHandle handle(options ? TIFFFdOpenExt(ownDescriptor, path.c_str(), mode, options.get()) : nullptr);
    if (!handle)
        ::close(ownDescriptor);
    return handle;
}
} // namespace kovis::tool
