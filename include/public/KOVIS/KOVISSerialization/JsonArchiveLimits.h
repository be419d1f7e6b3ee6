#pragma once

namespace kovis
{
/// What an archive of JSON text may hold at most. The writer keeps to the limits of a default-constructed object, so that what it
/// writes can be read. With these, reading needs a few times the text's own size and never more than some 200 MiB.
struct JsonArchiveLimits
{
    unsigned long m_maxBytes = 1UL << 26;        ///< of the text
    unsigned long m_maxDepth = 16;               ///< of sections in sections; each needs some stack
    unsigned long m_maxSections = 1UL << 16;     ///< in all
    unsigned long m_maxItems = 1UL << 16;        ///< in all
    unsigned long m_maxNumbers = 1UL << 20;      ///< in all lists together
    unsigned long m_maxTextLength = 1UL << 12;   ///< bytes of a name, key or text
    unsigned long m_maxNumberLength = 1UL << 10; ///< digits, signs and points of a number
};
} // namespace kovis
