#include "ToolError.h"

#include <cctype>

namespace kovis::tool
{
namespace
{
std::string compose(const std::string& subject, const std::string& whatIsWrong, const std::string& whatToDo)
{
    std::string text = subject + ": " + whatIsWrong;
    if (!whatToDo.empty())
        text += "; " + whatToDo;
    return toOneLine(text);
}
} // namespace

ToolError::ToolError(const std::string& subject, const std::string& whatIsWrong, const std::string& whatToDo, ExitCode exitCode)
    : std::runtime_error(compose(subject, whatIsWrong, whatToDo)), m_exitCode(exitCode)
{
}

std::string quoteWord(const std::string& word)
{
    constexpr std::size_t g_maxLength = 40;
    std::string quoted(1, '\'');
    quoted += word.substr(0, g_maxLength);
    quoted += word.size() > g_maxLength ? "...'" : "'";
    return quoted;
}

std::string toOneLine(const std::string& text)
{
    std::string line;
    for (const char letter : text)
    {
        if (std::iscntrl(static_cast<unsigned char>(letter)) == 0)
            line += letter;
        else if (!line.empty() && line.back() != ' ')
            line += ' ';
    }
    while (!line.empty() && line.back() == ' ')
        line.pop_back();
    return line;
}
} // namespace kovis::tool
