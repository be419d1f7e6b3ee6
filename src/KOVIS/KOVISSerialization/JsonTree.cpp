#include "KOVIS/KOVISSerialization/JsonTree.h"

#include "KOVIS/KOVISSerialization/JsonNumber.h"
#include "KOVIS/KOVISSerialization/JsonTextBuffer.h"
#include "KOVIS/KOVISSerialization/JsonTreeBuilder.h"
#include "KOVIS/KOVISSerialization/SerializationMessages.h"
#include "KOVIS/KOVISSerialization/quoteArchiveText.h"

#include <nlohmann/json.hpp>

#include <istream>

namespace kovis::json
{
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

std::string describePlace(const std::vector<std::string>& sections, const std::string& key)
{
    std::string path;
    for (const std::string& section : sections)
    {
        path += (path.empty() ? "" : "/") + section;
    }
    const std::string place = sections.empty() ? "the outermost level" : "section " + quoteArchiveText(path);
    return key.empty() ? place : place + ", key " + quoteArchiveText(key);
}

std::string describeKind(const JsonValue& value)
{
    static constexpr const char* g_kinds[] = {"true or false", "an integer", "an integer",
                                              "a number",      "a text",     "a list of numbers"};
    return g_kinds[value.index()];
}
} // namespace kovis::json
