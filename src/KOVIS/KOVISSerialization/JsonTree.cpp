#include "KOVIS/KOVISSerialization/JsonTree.h"

#include "KOVIS/KOVISSerialization/JsonNumber.h"
#include "KOVIS/KOVISSerialization/JsonTreeBuilder.h"
#include "KOVIS/KOVISSerialization/SerializationMessages.h"

#include <nlohmann/json.hpp>

#include <istream>
#include <streambuf>

namespace kovis::json
{
namespace
{
constexpr std::size_t g_maxQuoted = 100;

/// The characters of another stream, up to a limit.
class LimitedBuffer : public std::streambuf
{
public:
    LimitedBuffer(std::streambuf& source, unsigned long maxBytes) : m_source(source), m_maxBytes(maxBytes) {}

protected:
    int_type underflow() override
    {
        const std::streamsize nbRead = m_source.sgetn(m_bytes, sizeof m_bytes);
        if (nbRead <= 0)
        {
            return traits_type::eof();
        }
        m_nbBytes += static_cast<unsigned long>(nbRead);
        if (m_nbBytes > m_maxBytes)
        {
            throwSerializationMessage(
                eKOVISSerializationMessage::eSM_BeyondLimit,
                SourcePlace{"virtual int kovis::json::LimitedBuffer::underflow()", "KOVIS/KOVISSerialization/JsonTree", __LINE__},
                "its end", m_maxBytes, "bytes");
        }
        setg(m_bytes, m_bytes, m_bytes + nbRead);
        return traits_type::to_int_type(m_bytes[0]);
    }

private:
    std::streambuf& m_source;
    unsigned long m_maxBytes;
    unsigned long m_nbBytes = 0;
    char m_bytes[4096];
};
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
    LimitedBuffer buffer(*stream.rdbuf(), limits.m_maxBytes);
    std::istream limited(&buffer);
    JsonTreeBuilder builder(limits);
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
