#pragma once

#include "KOVIS/KOVISSerialization/JsonArchiveLimits.h"

#include <cstdint>
#include <iosfwd>
#include <map>
#include <string>
#include <variant>
#include <vector>

namespace kovis::json
{
/// A number with a point or an exponent, or beyond the integers. The float is rounded from the text, not from the double:
/// rounding twice may end at another float.
struct JsonReal
{
    double m_double = 0.0;
    float m_float = 0.0F;
    bool m_bFloat = false; ///< whether a float can hold it
};

/// A value as the text has it: integers with and without a sign, other numbers, texts, lists of floats.
using JsonValue = std::variant<bool, std::int64_t, std::uint64_t, JsonReal, std::string, std::vector<float>>;

struct JsonSection
{
    std::string m_name;
    std::map<std::string, JsonValue> m_items;
    std::vector<JsonSection> m_sections;
};

// The members of a section's object.
inline constexpr const char* g_sectionKey = "section";
inline constexpr const char* g_itemsKey = "items";
inline constexpr const char* g_sectionsKey = "sections";

/// The text of a stream as sections within a nameless one. Throws KOVISSerializationException as JsonIArchive tells.
JsonSection readJsonTree(std::istream& stream, const JsonArchiveLimits& limits);

/// Words for a place: section "outer/inner", key "key". The key is left out where it is empty.
std::string describePlace(const std::vector<std::string>& sections, const std::string& key);

/// The value in words: a text, a list, ...
std::string describeKind(const JsonValue& value);
} // namespace kovis::json
