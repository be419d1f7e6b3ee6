#pragma once

#include <stdexcept>
#include <string>

namespace kovis::tool
{
/// Exit codes of the program.
enum ExitCode : int
{
    eSuccess = 0,
    eFailed = 1,
    eMisused = 2
};

/// An error that ends the program with one line, "SUBJECT: what is wrong; what to do". The subject is a file or an option.
class ToolError : public std::runtime_error
{
public:
    ToolError(const std::string& subject, const std::string& whatIsWrong, const std::string& whatToDo,
              ExitCode exitCode = eFailed);

    ExitCode getExitCode() const { return m_exitCode; }

private:
    ExitCode m_exitCode;
};

/// A word of the user's in quotes, cut short where it is far too long for a line.
std::string quoteWord(const std::string& word);

/// The text on one line: line ends and other control characters become single spaces.
std::string toOneLine(const std::string& text);
} // namespace kovis::tool
