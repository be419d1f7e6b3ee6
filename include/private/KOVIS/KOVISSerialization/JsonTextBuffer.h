#pragma once

#include "KOVIS/KOVISSerialization/JsonArchiveLimits.h"

#include <cstddef>
#include <streambuf>

namespace kovis::json
{
class JsonTreeBuilder;

/// The characters of another stream as the JSON parser gets them. The parser holds a token whole before it hands it on, so what
/// is too long is refused here, through the builder, which knows the place.
class JsonTextBuffer : public std::streambuf
{
public:
    JsonTextBuffer(std::streambuf& source, const JsonArchiveLimits& limits, const JsonTreeBuilder& builder);

protected:
    int_type underflow() override;

private:
    /// What the last character belongs to.
    enum class Token
    {
        space, ///< white space
        mark,  ///< brackets, colons and commas
        text,
        escape, ///< the backslash of a text
        number  ///< or true, false, null
    };

    std::size_t readBlock();
    /// Takes the characters of the block into account up to one that goes too far; returns how many are kept of them.
    std::size_t takeBlock(std::size_t nbRead);
    /// Follows the tokens, and returns whether the one that this character belongs to is short enough.
    bool fits(char letter);
    void begin(Token token);

    std::streambuf& m_source;
    const JsonArchiveLimits m_limits;
    const JsonTreeBuilder& m_builder;
    Token m_token = Token::mark;
    unsigned long m_nbLetters = 0; ///< of the token so far
    unsigned long m_nbBytes = 0;   ///< of the text so far
    unsigned long m_limit = 0;     ///< that the next character exceeds
    const char* m_what = nullptr;  ///< that there is too much of; null for nothing
    char m_bytes[4096];
};
} // namespace kovis::json
