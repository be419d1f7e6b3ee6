#include "OutputFile.h"

#include "ToolError.h"

#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace kovis::tool
{
namespace
{
namespace fs = std::filesystem;

// What a signal handler may read: the temporary file of this process, if there is one.
char g_pathToRemove[4096] = "";
volatile std::sig_atomic_t g_bRemove = 0;

extern "C" void removeTemporaryFile(int signalNumber)
{
    if (g_bRemove != 0)
        ::unlink(g_pathToRemove);
    std::signal(signalNumber, SIG_DFL);
    std::raise(signalNumber);
}

void watchSignals(const std::string& path)
{
    if (path.size() >= sizeof g_pathToRemove)
        return;
    std::memcpy(g_pathToRemove, path.c_str(), path.size() + 1);
    g_bRemove = 1;
    for (const int signalNumber : {SIGINT, SIGTERM, SIGHUP})
    {
        // A signal that the program was told to ignore stays ignored.
        if (std::signal(signalNumber, removeTemporaryFile) == SIG_IGN)
            std::signal(signalNumber, SIG_IGN);
    }
}

void unwatchSignals()
{
    g_bRemove = 0;
    for (const int signalNumber : {SIGINT, SIGTERM, SIGHUP})
    {
        if (std::signal(signalNumber, SIG_DFL) == SIG_IGN)
            std::signal(signalNumber, SIG_IGN);
    }
}

mode_t getFileMode()
{
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return static_cast<mode_t>(0666) & ~mask;
}
} // namespace

std::string getSystemErrorText(int errorNumber)
{
    return std::generic_category().message(errorNumber);
}

OutputFile::OutputFile(const std::string& path) : m_path(path), m_target(path)
{
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    if (fs::is_directory(status))
        throw ToolError(path, "is a folder", "name a file in it");
    if (fs::exists(status) && !fs::is_regular_file(status))
        throw ToolError(path, "is not a plain file", "write to a plain file");
    if (fs::is_symlink(fs::symlink_status(path, error)) && fs::exists(status))
        m_target = fs::canonical(path).string();

    const fs::path target(m_target);
    const fs::path folder = target.has_parent_path() ? target.parent_path() : fs::path(".");
    std::string name(".");
    name.append(target.filename().string().substr(0, 200)).append(".XXXXXX");
    std::string pattern = (folder / name).string();
    m_descriptor = ::mkostemp(pattern.data(), O_CLOEXEC);
    if (m_descriptor < 0)
        throw ToolError(path, "cannot be written (" + getSystemErrorText(errno) + ")",
                        "choose a folder that exists and that you may write to");
    m_temporaryPath = pattern;
    watchSignals(m_temporaryPath);
}

OutputFile::~OutputFile()
{
    if (m_descriptor >= 0)
        ::close(m_descriptor);
    if (!m_temporaryPath.empty())
    {
        ::unlink(m_temporaryPath.c_str());
        unwatchSignals();
    }
}

void OutputFile::commit()
{
    const bool bModeSet = ::fchmod(m_descriptor, getFileMode()) == 0;
    const int modeError = errno;
    const bool bClosed = ::close(m_descriptor) == 0;
    const int closeError = errno;
    m_descriptor = -1;
    if (!bModeSet || !bClosed)
        throw ToolError(m_path, "cannot be written (" + getSystemErrorText(bModeSet ? closeError : modeError) + ")",
                        "see that the disk has room");
    if (::rename(m_temporaryPath.c_str(), m_target.c_str()) != 0)
        throw ToolError(m_path, "cannot be written (" + getSystemErrorText(errno) + ")",
                        "choose another name or remove what stands there");
    m_temporaryPath.clear();
    unwatchSignals();
}

void checkNotTheInput(const std::string& outputPath, const std::string& inputPath)
{
    std::error_code error;
    if (fs::equivalent(outputPath, inputPath, error) && !error)
        throw ToolError(outputPath, "is the input itself, which is never overwritten", "give -o another name", eMisused);
}
} // namespace kovis::tool
