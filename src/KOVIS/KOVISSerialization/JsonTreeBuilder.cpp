#include "KOVIS/KOVISSerialization/JsonTreeBuilder.h"

#include "KOVIS/KOVISSerialization/JsonNumber.h"
#include "KOVIS/KOVISSerialization/SerializationMessages.h"
#include "KOVIS/KOVISSerialization/quoteArchiveText.h"

#include <utility>

// The place of a message in this unit.
#define KOVIS_HERE(FUNCTION)                                                                                                     \
    SourcePlace                                                                                                                  \
    {                                                                                                                            \
        FUNCTION, "KOVIS/KOVISSerialization/JsonTreeBuilder", __LINE__                                                           \
    }

namespace kovis::json
{
JsonTreeBuilder::JsonTreeBuilder(const JsonArchiveLimits& limits) : m_limits(limits) {}

JsonSection JsonTreeBuilder::takeTree()
{
    return std::move(m_root);
}

std::string JsonTreeBuilder::describe() const
{
    std::vector<std::string> names;
    for (const OpenSection& open : m_open)
    {
        names.push_back(open.m_bName ? open.m_section->m_name : "?");
    }
    return describePlace(names, m_key);
}

void JsonTreeBuilder::refuse(const std::string& found) const
{
    std::string expected;
    switch (getPlace())
    {
    case Place::outside:
        expected = "an array of sections";
        break;
    case Place::sections:
        expected = "a section";
        break;
    case Place::section:
        expected = m_key == g_sectionKey ? "the section's name"
                   : m_key == g_itemsKey ? "an object of items"
                                         : "an array of sections";
        break;
    case Place::items:
        expected = "a value";
        break;
    case Place::list:
        expected = "a number";
        break;
    }
    throwSerializationMessage(eKOVISSerializationMessage::eSM_WrongKind,
                              KOVIS_HERE("void kovis::json::JsonTreeBuilder::refuse(const std::string&) const"), describe(),
                              found, expected);
}

void JsonTreeBuilder::refuseText(const std::exception& error) const
{
    // The parser's words without the name of its exception; they may quote a text of any length.
    std::string words = error.what();
    const std::size_t begin = words.find("] ");
    words = begin == std::string::npos ? words : words.substr(begin + 2);
    throwSerializationMessage(eKOVISSerializationMessage::eSM_Damaged,
                              KOVIS_HERE("void kovis::json::JsonTreeBuilder::refuseText(const std::exception&) const"),
                              describe(), quoteArchiveText(words));
}

void JsonTreeBuilder::refuseMore(unsigned long limit, const char* what) const
{
    throwSerializationMessage(eKOVISSerializationMessage::eSM_BeyondLimit,
                              KOVIS_HERE("void kovis::json::JsonTreeBuilder::refuseMore(unsigned long, const char*) const"),
                              describe(), limit, what);
}

void JsonTreeBuilder::count(unsigned long& counter, unsigned long limit, const char* what) const
{
    if (counter >= limit)
    {
        refuseMore(limit, what);
    }
    ++counter;
}

void JsonTreeBuilder::checkLength(const std::string& text) const
{
    if (text.size() > m_limits.m_maxTextLength)
    {
        refuseMore(m_limits.m_maxTextLength, "bytes in a name, key or text");
    }
}

bool JsonTreeBuilder::keep(JsonValue&& value)
{
    if (getPlace() != Place::items)
    {
        refuse(describeKind(value));
    }
    m_open.back().m_section->m_items[m_key] = std::move(value);
    return true;
}

void JsonTreeBuilder::appendNumber(bool bFits, float value, const std::string& shown)
{
    count(m_nbNumbers, m_limits.m_maxNumbers, "numbers in lists");
    if (!bFits)
    {
        throwSerializationMessage(eKOVISSerializationMessage::eSM_OutOfRange,
                                  KOVIS_HERE("void kovis::json::JsonTreeBuilder::appendNumber(bool, float, const std::string&)"),
                                  describe(), shown, "a float of a list");
    }
    m_pList->push_back(value);
}

template <class TInteger>
bool JsonTreeBuilder::takeInteger(TInteger value, float element)
{
    if (getPlace() != Place::list)
    {
        return keep(value);
    }
    appendNumber(true, element, std::string());
    return true;
}

bool JsonTreeBuilder::null()
{
    refuse("null");
}

bool JsonTreeBuilder::boolean(bool value)
{
    return keep(value);
}

bool JsonTreeBuilder::number_integer(std::int64_t value)
{
    // The parser calls this for integers with a minus: a zero is the negative one.
    return takeInteger(value, value == 0 ? -0.0F : static_cast<float>(value));
}

bool JsonTreeBuilder::number_unsigned(std::uint64_t value)
{
    return takeInteger(value, static_cast<float>(value));
}

bool JsonTreeBuilder::number_float(double value, const std::string& text)
{
    JsonReal real{value};
    real.m_bFloat = toFloat(text, value, real.m_float);
    if (getPlace() != Place::list)
    {
        return keep(real);
    }
    appendNumber(real.m_bFloat, real.m_float, real.m_bFloat ? std::string() : std::to_string(value));
    return true;
}

bool JsonTreeBuilder::string(std::string& value)
{
    checkLength(value);
    if (getPlace() == Place::list)
    {
        float element = 0.0F;
        const bool bFits = fromSpecialText(value, element);
        appendNumber(bFits, element, quoteArchiveText(value));
        return true;
    }
    if (getPlace() == Place::section && m_key == g_sectionKey)
    {
        m_open.back().m_section->m_name = std::move(value);
        m_open.back().m_bName = true;
        m_key.clear();
        return true;
    }
    return keep(std::move(value));
}

bool JsonTreeBuilder::start_object(std::size_t)
{
    if (getPlace() == Place::section && m_key == g_itemsKey)
    {
        m_places.push_back(Place::items);
        m_key.clear();
        return true;
    }
    if (getPlace() != Place::sections)
    {
        refuse("an object");
    }
    count(m_nbSections, m_limits.m_maxSections, "sections");
    if (m_open.size() >= m_limits.m_maxDepth)
    {
        refuseMore(m_limits.m_maxDepth, "sections in each other");
    }
    JsonSection& parent = m_open.empty() ? m_root : *m_open.back().m_section;
    m_open.push_back({&parent.m_sections.emplace_back()});
    m_places.push_back(Place::section);
    return true;
}

bool JsonTreeBuilder::key(std::string& value)
{
    checkLength(value);
    m_key = std::move(value);
    bool bDoubled = false;
    if (getPlace() == Place::items)
    {
        count(m_nbItems, m_limits.m_maxItems, "items");
        bDoubled = !m_open.back().m_section->m_items.try_emplace(m_key).second;
    }
    else
    {
        OpenSection& open = m_open.back();
        if (m_key == g_itemsKey || m_key == g_sectionsKey)
        {
            bool& bSeen = m_key == g_itemsKey ? open.m_bItems : open.m_bSections;
            bDoubled = std::exchange(bSeen, true);
        }
        else if (m_key == g_sectionKey)
        {
            bDoubled = open.m_bName;
        }
        else
        {
            throwSerializationMessage(eKOVISSerializationMessage::eSM_WrongKind,
                                      KOVIS_HERE("bool kovis::json::JsonTreeBuilder::key(std::string&)"), describe(),
                                      "an unknown key", "one of \"section\", \"items\" and \"sections\"");
        }
    }
    if (bDoubled)
    {
        throwSerializationMessage(eKOVISSerializationMessage::eSM_DoubledKey,
                                  KOVIS_HERE("bool kovis::json::JsonTreeBuilder::key(std::string&)"), describe());
    }
    return true;
}

bool JsonTreeBuilder::end_object()
{
    m_key.clear();
    if (getPlace() == Place::section)
    {
        if (!m_open.back().m_bName)
        {
            m_key = g_sectionKey;
            throwSerializationMessage(eKOVISSerializationMessage::eSM_NoItem,
                                      KOVIS_HERE("bool kovis::json::JsonTreeBuilder::end_object()"), describe());
        }
        m_open.pop_back();
    }
    m_places.pop_back();
    return true;
}

bool JsonTreeBuilder::start_array(std::size_t)
{
    const bool bSections = getPlace() == Place::outside || (getPlace() == Place::section && m_key == g_sectionsKey);
    if (bSections)
    {
        m_key.clear();
        m_places.push_back(Place::sections);
        return true;
    }
    if (getPlace() != Place::items)
    {
        refuse("an array");
    }
    m_pList = &m_open.back().m_section->m_items[m_key].emplace<std::vector<float>>();
    m_places.push_back(Place::list);
    return true;
}

bool JsonTreeBuilder::end_array()
{
    if (getPlace() == Place::sections)
    {
        m_key.clear();
    }
    m_places.pop_back();
    return true;
}
} // namespace kovis::json
