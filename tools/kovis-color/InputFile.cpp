#include "InputFile.h"

#include "OutputFile.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace kovis::tool
{
InputFile::InputFile(const std::string& path, const ReadLimits& limits, const std::string& whatToGive)
    : m_path(path), m_limits(limits)
{
    // Not to wait for a writer where the name is a pipe's.
    m_descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (m_descriptor < 0)
        throw ToolError(path, "cannot be read (" + getSystemErrorText(errno) + ")", "check the name and the permissions");
    struct stat information = {};
    const bool bKnown = ::fstat(m_descriptor, &information) == 0;
    if (!bKnown || !S_ISREG(information.st_mode) || information.st_size == 0)
    {
        const bool bEmpty = bKnown && S_ISREG(information.st_mode);
        ::close(m_descriptor);
        if (bEmpty)
            throw ToolError(path, "is empty", whatToGive);
        throw ToolError(path, "is not a plain file", whatToGive);
    }
    m_size = static_cast<std::uint64_t>(information.st_size);
}

InputFile::~InputFile()
{
    ::close(m_descriptor);
}

std::int64_t InputFile::read(void* buffer, std::size_t nbBytes) const
{
    std::size_t nbRead = 0;
    while (nbRead < nbBytes)
    {
        const ssize_t result = ::read(m_descriptor, static_cast<char*>(buffer) + nbRead, nbBytes - nbRead);
        if (result < 0 && errno == EINTR)
            continue;
        if (result < 0)
            return -1;
        if (result == 0)
            break;
        nbRead += static_cast<std::size_t>(result);
    }
    return static_cast<std::int64_t>(nbRead);
}

void InputFile::rewind() const
{
    if (::lseek(m_descriptor, 0, SEEK_SET) != 0)
        throw ToolError(m_path, "cannot be read (" + getSystemErrorText(errno) + ")", "check the disk");
}

void InputFile::checkClaim(const PictureShape& shape, std::uint64_t maxExpansion) const
{
    const std::string claim = std::to_string(shape.sizeX) + " x " + std::to_string(shape.sizeY) + " samples in " +
                              std::to_string(shape.channels) + " channel(s) and " + std::to_string(shape.pages) + " page(s)";
    if (shape.getNbPlanes() == 0 || shape.sizeX == 0 || shape.sizeY == 0)
        throw ToolError(m_path, "holds no samples (" + claim + ")", "give a picture with a size");
    std::uint64_t bytes = 0;
    const bool bFits = computeTotalBytes(shape, bytes);
    // In this order of the factors nothing overflows: the size of a file is below 2^63.
    if (maxExpansion != 0 && (!bFits || bytes / maxExpansion > m_size))
        throw ToolError(m_path, "claims more than its " + std::to_string(m_size) + " bytes can hold (" + claim + ")",
                        "the file is cut short or damaged, get it anew");
    if (!bFits || bytes > m_limits.maxBytes)
        throw ToolError(m_path,
                        "asks for more memory than allowed (" + claim + ", limit " + std::to_string(m_limits.maxBytes >> 20) +
                            " MiB)",
                        "raise the limit with --max-memory or cut the picture into parts");
}

ToolError InputFile::makeDamageError(const std::string& detail) const
{
    return ToolError(m_path, detail.empty() ? "is cut short or damaged" : "is cut short or damaged (" + toOneLine(detail) + ")",
                     "get the file anew or save it again from the program that made it");
}
} // namespace kovis::tool
