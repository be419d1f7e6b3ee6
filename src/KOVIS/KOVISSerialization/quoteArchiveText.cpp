#include "KOVIS/KOVISSerialization/quoteArchiveText.h"

namespace kovis
{
namespace
{
constexpr std::size_t g_maxQuoted = 100;
} // namespace

std::string quoteArchiveText(const std::string& text)
{
    std::string quoted = "\"";
    for (const char letter : text.substr(0, g_maxQuoted))
    {
        quoted += letter >= ' ' && letter <= '~' ? letter : '?';
    }
    return quoted + (text.size() > g_maxQuoted ? "...\"" : "\"");
}
} // namespace kovis
