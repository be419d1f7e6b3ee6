#include "KOVIS/KOVISSerialization/JsonIArchive.h"

#include "KOVIS/KOVISSerialization/JsonNumber.h"
#include "KOVIS/KOVISSerialization/JsonTree.h"
#include "KOVIS/KOVISSerialization/SerializationMessages.h"
#include "KOVIS/KOVISSerialization/quoteArchiveText.h"

#include <concepts>
#include <limits>
#include <type_traits>
#include <utility>

namespace kovis
{
namespace
{
constexpr const char* g_file = "KOVIS/KOVISSerialization/JsonIArchive";

const std::string& getEmptyName()
{
    static const std::string g_emptyName;
    return g_emptyName;
}

/// How a value that stands in the text fits the kind that is wanted.
enum class Fit
{
    good,
    wrongKind,
    outOfRange
};

template <class T>
concept ArchivedInteger = std::integral<T> && !std::same_as<T, bool>;

// Those that are not told below are of another kind.
template <class TFound, class TWanted>
Fit convert(const TFound&, TWanted&)
{
    return Fit::wrongKind;
}

template <class T>
Fit convert(const T& found, T& wanted)
{
    wanted = found;
    return Fit::good;
}

template <ArchivedInteger TFound, ArchivedInteger TWanted>
Fit convert(const TFound& found, TWanted& wanted)
{
    if (!std::in_range<TWanted>(found))
    {
        return Fit::outOfRange;
    }
    wanted = static_cast<TWanted>(found);
    return Fit::good;
}

Fit convert(const json::JsonReal& found, float& wanted)
{
    wanted = found.m_bFloat ? found.m_float : wanted;
    return found.m_bFloat ? Fit::good : Fit::outOfRange;
}

Fit convert(const json::JsonReal& found, double& wanted)
{
    wanted = found.m_double;
    return Fit::good;
}

template <ArchivedInteger TFound, std::floating_point TWanted>
Fit convert(const TFound& found, TWanted& wanted)
{
    // The text "-0", which is the only integer zero with a sign.
    const bool bNegativeZero = std::is_signed_v<TFound> && found == 0;
    wanted = bNegativeZero ? -TWanted(0) : static_cast<TWanted>(found);
    return Fit::good;
}

template <std::floating_point TWanted>
Fit convert(const std::string& found, TWanted& wanted)
{
    return json::fromSpecialText(found, wanted) ? Fit::good : Fit::wrongKind;
}

std::string describeWanted(const ArchiveValue& value)
{
    static constexpr const char* g_kinds[] = {"true or false",
                                              "an integer of 32 bits with a sign",
                                              "an integer of 32 bits without a sign",
                                              "an integer of 64 bits with a sign",
                                              "an integer of 64 bits without a sign",
                                              "a number of the range of float",
                                              "a number",
                                              "a text",
                                              "a list of numbers"};
    return g_kinds[value.index()];
}

std::string describeNumber(const json::JsonValue& value)
{
    return std::visit(
        [&value](const auto& number)
        {
            using Number = std::decay_t<decltype(number)>;
            if constexpr (std::is_same_v<Number, json::JsonReal>)
            {
                return std::to_string(number.m_double);
            }
            else if constexpr (std::is_arithmetic_v<Number>)
            {
                return std::to_string(number);
            }
            else
            {
                return json::describeKind(value);
            }
        },
        value);
}
} // namespace

struct JsonIArchive::Tree
{
    /// A section that is being read, and which of its sections is the next.
    struct Open
    {
        const json::JsonSection* m_section;
        std::size_t m_next = 0;
    };

    json::JsonSection m_root;
    std::vector<Open> m_open; ///< the first one is the text's array

    const json::JsonSection* getNext() const
    {
        const Open& open = m_open.back();
        return open.m_next < open.m_section->m_sections.size() ? &open.m_section->m_sections[open.m_next] : nullptr;
    }
};

JsonIArchive::JsonIArchive(std::istream& stream, const JsonArchiveLimits& limits) : m_tree(std::make_unique<Tree>())
{
    m_tree->m_root = json::readJsonTree(stream, limits);
    m_tree->m_open.push_back({&m_tree->m_root});
}

JsonIArchive::~JsonIArchive() = default;

std::string JsonIArchive::getPlace(const std::string& key) const
{
    std::vector<std::string> names;
    for (std::size_t i = 1; i < m_tree->m_open.size(); ++i)
    {
        names.push_back(m_tree->m_open[i].m_section->m_name);
    }
    return json::describePlace(names, key);
}

bool JsonIArchive::hasNextSection() const
{
    return m_tree->getNext() != nullptr;
}

const std::string& JsonIArchive::getNextSectionName() const
{
    const json::JsonSection* const next = m_tree->getNext();
    return next != nullptr ? next->m_name : getEmptyName();
}

void JsonIArchive::beginSection(const std::string& sectionName)
{
    const json::JsonSection* const next = m_tree->getNext();
    if (next == nullptr || next->m_name != sectionName)
    {
        throwSerializationMessage(
            eKOVISSerializationMessage::eSM_OtherSection,
            SourcePlace{"virtual void kovis::JsonIArchive::beginSection(const std::string&)", g_file, __LINE__},
            getPlace(std::string()), next == nullptr ? "no further section" : "section " + quoteArchiveText(next->m_name),
            sectionName);
    }
    ++m_tree->m_open.back().m_next;
    m_tree->m_open.push_back({next});
}

void JsonIArchive::endSection()
{
    if (m_tree->m_open.size() == 1)
    {
        throwSerializationMessage(eKOVISSerializationMessage::eSM_Misused,
                                  SourcePlace{"virtual void kovis::JsonIArchive::endSection()", g_file, __LINE__},
                                  "a section is to be closed, and none is open", "use ArchiveSectionManager");
    }
    m_tree->m_open.pop_back();
}

void JsonIArchive::readItem(const std::string& key, ArchiveValue& value)
{
    const auto& items = m_tree->m_open.back().m_section->m_items;
    const auto found = items.find(key);
    const SourcePlace place{"virtual void kovis::JsonIArchive::readItem(const std::string&, kovis::ArchiveValue&)", g_file,
                            __LINE__};
    if (found == items.end())
    {
        throwSerializationMessage(eKOVISSerializationMessage::eSM_NoItem, place, getPlace(key));
    }
    const json::DefaultFloatEnvironment environment;
    const Fit fit =
        std::visit([](const auto& standing, auto& wanted) { return convert(standing, wanted); }, found->second, value);
    if (fit == Fit::wrongKind)
    {
        throwSerializationMessage(eKOVISSerializationMessage::eSM_WrongKind, place, getPlace(key),
                                  json::describeKind(found->second), describeWanted(value));
    }
    if (fit == Fit::outOfRange)
    {
        throwSerializationMessage(eKOVISSerializationMessage::eSM_OutOfRange, place, getPlace(key), describeNumber(found->second),
                                  describeWanted(value));
    }
}
} // namespace kovis
