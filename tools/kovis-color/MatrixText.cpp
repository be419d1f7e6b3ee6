#include "MatrixText.h"

#include "ToolError.h"

#include <charconv>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace kovis::tool
{
namespace
{
constexpr std::uintmax_t g_maxFileBytes = 1 << 20;
constexpr const char* g_separators = ",; \t\r\n";

float parseNumber(const std::string& subject, const std::string& word, ExitCode exitCode)
{
    const char* begin = word.data();
    const char* end = begin + word.size();
    if (begin != end && *begin == '+')
        ++begin;
    float number = 0.0F;
    const auto [stop, error] = std::from_chars(begin, end, number);
    if (error != std::errc() || stop != end || !std::isfinite(number))
        throw ToolError(subject, quoteWord(word) + " is no number of the matrix",
                        "write plain decimal numbers separated by commas", exitCode);
    return number;
}

std::vector<float> parseNumbers(const std::string& subject, const std::string& text, ExitCode exitCode)
{
    std::vector<float> numbers;
    std::size_t place = text.find_first_not_of(g_separators);
    while (place != std::string::npos)
    {
        const std::size_t end = text.find_first_of(g_separators, place);
        numbers.push_back(parseNumber(subject, text.substr(place, end == std::string::npos ? end : end - place), exitCode));
        place = text.find_first_not_of(g_separators, end);
    }
    if (numbers.empty())
        throw ToolError(subject, "holds no number", "give outputs * (inputs + 1) numbers, row after row", exitCode);
    return numbers;
}
} // namespace

bool isMatrixList(const std::string& argument)
{
    if (argument.find_first_not_of("0123456789+-.eE,; \t") == std::string::npos)
        return true;
    // "1,2,nan" is a list with a mistake, unless a file is called so.
    std::error_code error;
    return argument.find(',') != std::string::npos && !std::filesystem::exists(argument, error);
}

std::vector<float> readMatrix(const std::string& argument)
{
    if (isMatrixList(argument))
        return parseNumbers("--matrix", argument, eMisused);

    std::error_code error;
    std::ifstream stream(argument);
    if (!stream || std::filesystem::is_directory(argument, error))
        throw ToolError(argument, "cannot be read", "give --matrix a list of numbers or a file that holds one");
    const std::uintmax_t nbBytes = std::filesystem::file_size(argument, error);
    if (!error && nbBytes > g_maxFileBytes)
        throw ToolError(argument, "is too large for a matrix", "give a text file of numbers");
    std::string text;
    std::string line;
    while (std::getline(stream, line))
        text += line.substr(0, line.find('#')) + "\n";
    return parseNumbers(argument, text, eFailed);
}
} // namespace kovis::tool
