#pragma once

#include <string>

namespace kovis::tool
{
/// A file that appears under its name only when it is whole. It is written under a temporary name in the same folder,
/// renamed by commit, and removed by the destructor, or by a signal that ends the program, if commit was not reached.
/// One at a time in a process.
class OutputFile
{
public:
    /// Makes the temporary file. Throws ToolError when the folder cannot be written or path names something else than
    /// a plain file.
    explicit OutputFile(const std::string& path);
    ~OutputFile();
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    /// The open descriptor, at the file's start; it stays this object's.
    int getDescriptor() const { return m_descriptor; }

    /// Closes and renames. Throws ToolError when that fails; the temporary file is then removed.
    void commit();

private:
    std::string m_path;
    std::string m_target; ///< m_path with a symbolic link at its end followed
    std::string m_temporaryPath;
    int m_descriptor = -1;
};

/// Throws ToolError (misused) when both paths lead to one file.
void checkNotTheInput(const std::string& outputPath, const std::string& inputPath);

/// The system's words for an error number.
std::string getSystemErrorText(int errorNumber);
} // namespace kovis::tool
