#include "KOVIS/KOVISSerialization/JsonTextBuffer.h"

#include "KOVIS/KOVISSerialization/JsonTreeBuilder.h"
#include "KOVIS/KOVISSerialization/SerializationMessages.h"

#include <exception>
#include <string_view>

namespace kovis::json
{
namespace
{
constexpr unsigned long g_longestEscape = 6; // \u0041, which may stand for a single byte
constexpr unsigned long g_maxSpaces = 4096;  // of a run; the parser keeps white space too, and more of it tells nothing

bool isOneOf(char letter, std::string_view letters)
{
    return letters.find(letter) != std::string_view::npos;
}
} // namespace

JsonTextBuffer::JsonTextBuffer(std::streambuf& source, const JsonArchiveLimits& limits, const JsonTreeBuilder& builder)
    : m_source(source), m_limits(limits), m_builder(builder)
{
}

JsonTextBuffer::int_type JsonTextBuffer::underflow()
{
    // The parser gets all that stands before what is too much: then the builder knows the place.
    std::size_t nbKept = 0;
    while (nbKept == 0)
    {
        if (m_what != nullptr)
        {
            m_builder.refuseMore(m_limit, m_what);
        }
        const std::size_t nbRead = readBlock();
        if (nbRead == 0)
        {
            return traits_type::eof();
        }
        nbKept = takeBlock(nbRead);
    }
    setg(m_bytes, m_bytes, m_bytes + nbKept);
    return traits_type::to_int_type(m_bytes[0]);
}

std::size_t JsonTextBuffer::readBlock()
{
    try
    {
        const std::streamsize nbRead = m_source.sgetn(m_bytes, sizeof m_bytes);
        return nbRead > 0 ? static_cast<std::size_t>(nbRead) : 0;
    }
    catch (const std::exception&)
    {
        throwSerializationMessage(eKOVISSerializationMessage::eSM_StreamFailed,
                                  SourcePlace{"std::size_t kovis::json::JsonTextBuffer::readBlock()",
                                              "KOVIS/KOVISSerialization/JsonTextBuffer", __LINE__},
                                  "read");
    }
}

std::size_t JsonTextBuffer::takeBlock(std::size_t nbRead)
{
    std::size_t nbKept = 0;
    for (std::size_t i = 0; i < nbRead; ++i)
    {
        if (m_nbBytes == m_limits.m_maxBytes)
        {
            m_limit = m_limits.m_maxBytes;
            m_what = "bytes";
            break;
        }
        ++m_nbBytes;
        if (!fits(m_bytes[i]))
        {
            break;
        }
        if (m_token != Token::space || m_nbLetters <= g_maxSpaces)
        {
            m_bytes[nbKept++] = m_bytes[i];
        }
    }
    return nbKept;
}

void JsonTextBuffer::begin(Token token)
{
    m_nbLetters = m_token == token ? m_nbLetters + 1 : 1;
    m_token = token;
}

bool JsonTextBuffer::fits(char letter)
{
    if (m_token == Token::text || m_token == Token::escape)
    {
        if (m_token == Token::text && letter == '"')
        {
            begin(Token::mark);
            return true;
        }
        m_token = m_token == Token::text && letter == '\\' ? Token::escape : Token::text;
        m_limit = m_limits.m_maxTextLength;
        // The opening quote was counted, this character is not yet.
        m_what = m_nbLetters++ / g_longestEscape > m_limit ? "bytes in a name, key or text" : nullptr;
    }
    else if (isOneOf(letter, " \t\r\n"))
    {
        begin(Token::space);
    }
    else if (letter == '"')
    {
        begin(Token::text);
    }
    else if (isOneOf(letter, "[]{},:"))
    {
        begin(Token::mark);
    }
    else
    {
        begin(Token::number);
        m_limit = m_limits.m_maxNumberLength;
        m_what = m_nbLetters > m_limit ? "bytes in a number" : nullptr;
    }
    return m_what == nullptr;
}
} // namespace kovis::json
