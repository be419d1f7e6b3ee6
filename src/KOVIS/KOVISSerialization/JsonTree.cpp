#include "KOVIS/KOVISSerialization/JsonTree.h"

#include "KOVIS/KOVISSerialization/JsonNumber.h"
#include "KOVIS/KOVISSerialization/JsonTextBuffer.h"
#include "KOVIS/KOVISSerialization/JsonTreeBuilder.h"
#include "KOVIS/KOVISSerialization/SerializationMessages.h"

#include <nlohmann/json.hpp>

#include <istream>

namespace kovis::json
{
namespace
{
constexpr std::size_t g_maxQuoted = 100;
} // namespace

JsonSection readJsonTree(std::istream& stream, const JsonArchiveLimits& limits)
{
    if (!stream.good() || stream.rdbuf() == nullptr)
    {
        throwSerializationMessage(eKOVISSerializationMessage::eSM_StreamFailed,
                                  SourcePlace{"kovis::json::JsonSection kovis::json::readJsonTree(std::istream&, const "
                                              "kovis::JsonArchiveLimits&)",
                                              "KOVIS/KOVISSerialization/JsonTree", __LINE__},
                                  "read");
    }
    const DefaultFloatEnvironment environment;
    JsonTreeBuilder builder(limits);
    JsonTextBuffer buffer(*stream.rdbuf(), limits, builder);
    std::istream limited(&buffer);
    nlohmann::json::sax_parse(limited, &builder);
    return builder.takeTree();
}

std::string quote(const std::string& text)
{
    std::string quoted = "\"";
    for (const char letter : text.substr(0, g_maxQuoted))
    {
        quoted += letter >= ' ' && letter <= '~' ? letter : '?';
    }
    return quoted + (text.size() > g_maxQuoted ? "...\"" : "\"");
}

std::string describePlace(const std::vector<std::string>& sections, const std::string& key)
{
    std::string path;
    for (const std::string& section : sections)
    {
        path += (path.empty() ? "" : "/") + section;
    }
    const std::string place = sections.empty() ? "the outermost level" : "section " + quote(path);
    return key.empty() ? place : place + ", key " + quote(key);
}

std::string describeKind(const JsonValue& value)
{
    static constexpr const char* g_kinds[] = {"true or false", "an integer", "an integer",
                                              "a number",      "a text",     "a list of numbers"};
    return g_kinds[value.index()];
}
} // namespace kovis::json
