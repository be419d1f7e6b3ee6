#include "KOVIS/KOVISSerialization/JsonOArchive.h"

#include "KOVIS/KOVISSerialization/JsonArchiveLimits.h"
#include "KOVIS/KOVISSerialization/JsonNumber.h"
#include "KOVIS/KOVISSerialization/JsonTree.h"
#include "KOVIS/KOVISSerialization/SerializationMessages.h"

#include <nlohmann/json.hpp>

#include <ios>
#include <ostream>
#include <unordered_set>
#include <vector>

namespace kovis
{
namespace
{
using nlohmann::ordered_json;

constexpr const char* g_file = "KOVIS/KOVISSerialization/JsonOArchive";
constexpr int g_indentation = 1; // deep lists are the longer part of a text

ordered_json toJson(float value)
{
    const std::string special = json::toSpecialText(value);
    return special.empty() ? ordered_json(json::toJsonNumber(value)) : ordered_json(special);
}

ordered_json toJson(double value)
{
    const std::string special = json::toSpecialText(value);
    return special.empty() ? ordered_json(value) : ordered_json(special);
}

ordered_json toJson(const std::vector<float>& values)
{
    ordered_json list = ordered_json::array();
    for (const float value : values)
    {
        list.push_back(toJson(value));
    }
    return list;
}

template <class T>
ordered_json toJson(const T& value)
{
    return value;
}

bool isUtf8(const std::string& text)
{
    try
    {
        static_cast<void>(ordered_json(text).dump());
        return true;
    }
    catch (const ordered_json::exception&)
    {
        return false;
    }
}
} // namespace

struct JsonOArchive::Text
{
    /// A section that is being written, and the keys of its items: an ordered object looks for a key from its first one on.
    struct Open
    {
        ordered_json m_section;
        std::unordered_set<std::string> m_keys;
    };
    /// Why a section did not go out.
    enum class Loss
    {
        none,
        tooLong,
        notWritten
    };

    explicit Text(std::ostream& stream) : m_stream(stream) {}

    std::ostream& m_stream;
    std::vector<Open> m_open; ///< sections, outermost first
    JsonArchiveLimits m_limits;
    unsigned long m_nbSections = 0;
    unsigned long m_nbItems = 0;
    unsigned long m_nbNumbers = 0;
    unsigned long m_nbBytes = 0;
    Loss m_loss = Loss::none;
    bool m_bBegun = false;
    bool m_bFinished = false;

    std::string getPlace(const std::string& key) const
    {
        std::vector<std::string> names;
        for (const Open& open : m_open)
        {
            names.push_back(open.m_section[json::g_sectionKey].get<std::string>());
        }
        return json::describePlace(names, key);
    }

    [[noreturn]] void refuse(const std::string& key, const std::string& reason) const
    {
        throwSerializationMessage(
            eKOVISSerializationMessage::eSM_CannotBeWritten,
            SourcePlace{"void kovis::JsonOArchive::Text::refuse(const std::string&, const std::string&) const", g_file, __LINE__},
            getPlace(key), reason);
    }

    [[noreturn]] void refuseUse(const std::string& what, const std::string& whatToDo) const
    {
        throwSerializationMessage(
            eKOVISSerializationMessage::eSM_Misused,
            SourcePlace{"void kovis::JsonOArchive::Text::refuseUse(const std::string&, const std::string&) const", g_file,
                        __LINE__},
            what, whatToDo);
    }

    void count(unsigned long& counter, unsigned long more, unsigned long limit, const std::string& key,
               const std::string& what) const
    {
        if (more > limit - counter)
        {
            refuse(key, "an archive holds at most " + std::to_string(limit) + " " + what);
        }
        counter += more;
    }

    void checkText(const std::string& text, const std::string& key) const
    {
        if (text.size() > m_limits.m_maxTextLength)
        {
            refuse(key, "a name, key or text has at most " + std::to_string(m_limits.m_maxTextLength) + " bytes");
        }
        if (!isUtf8(text))
        {
            refuse(key, "names, keys and texts are UTF-8");
        }
    }

    // A section of the outermost level is whole: it goes out. Sections are closed by destructors, which can report nothing: so
    // finish tells of what did not go out.
    void emit(const ordered_json& section)
    {
        m_loss = Loss::notWritten;
        const std::string words = section.dump(g_indentation);
        constexpr unsigned long separators = 8; // begin, end, and what stands between sections
        if (words.size() + separators > m_limits.m_maxBytes - m_nbBytes)
        {
            m_loss = Loss::tooLong;
            return;
        }
        m_nbBytes += words.size() + separators;
        if (put((m_bBegun ? ",\n" : "[\n") + words, false))
        {
            m_bBegun = true;
            m_loss = Loss::none;
        }
    }

    /// False for a stream that has failed, whichever way it tells.
    bool put(const std::string& words, bool bFlush)
    {
        try
        {
            m_stream << words;
            if (bFlush)
            {
                m_stream.flush();
            }
        }
        catch (const std::ios_base::failure&)
        {
            return false;
        }
        return m_stream.good();
    }
};

JsonOArchive::JsonOArchive(std::ostream& stream) : m_text(std::make_unique<Text>(stream)) {}

JsonOArchive::~JsonOArchive()
{
    try
    {
        finish();
    }
    catch (const std::exception&)
    {
        // Its message has been logged.
    }
}

void JsonOArchive::beginSection(const std::string& sectionName)
{
    Text& text = *m_text;
    if (text.m_bFinished)
    {
        text.refuseUse("a section is to be written to an archive that is finished", "finish it last");
    }
    text.checkText(sectionName, std::string());
    if (text.m_open.size() >= text.m_limits.m_maxDepth)
    {
        text.refuse(std::string(), "at most " + std::to_string(text.m_limits.m_maxDepth) + " sections stand in each other");
    }
    text.count(text.m_nbSections, 1, text.m_limits.m_maxSections, std::string(), "sections");
    ordered_json section;
    section[json::g_sectionKey] = sectionName;
    text.m_open.push_back({std::move(section), {}});
}

void JsonOArchive::endSection()
{
    Text& text = *m_text;
    if (text.m_open.empty())
    {
        text.refuseUse("a section is to be closed, and none is open", "use ArchiveSectionManager");
    }
    ordered_json section = std::move(text.m_open.back().m_section);
    text.m_open.pop_back();
    if (text.m_open.empty())
    {
        if (text.m_loss == Text::Loss::none)
        {
            text.emit(section);
        }
    }
    else
    {
        text.m_open.back().m_section[json::g_sectionsKey].push_back(std::move(section));
    }
}

void JsonOArchive::writeItem(const std::string& key, const ArchiveValue& value)
{
    Text& text = *m_text;
    if (text.m_open.empty())
    {
        text.refuseUse("an item is to be written outside all sections", "open one by ArchiveSectionManager");
    }
    text.checkText(key, key);
    if (const std::string* const words = std::get_if<std::string>(&value))
    {
        text.checkText(*words, key);
    }
    if (const auto* const numbers = std::get_if<std::vector<float>>(&value))
    {
        text.count(text.m_nbNumbers, numbers->size(), text.m_limits.m_maxNumbers, key, "numbers in lists");
    }
    text.count(text.m_nbItems, 1, text.m_limits.m_maxItems, key, "items");
    Text::Open& open = text.m_open.back();
    if (!open.m_keys.insert(key).second)
    {
        text.refuse(key, "the key stands there already");
    }
    const json::DefaultFloatEnvironment environment;
    ordered_json& items = open.m_section.emplace(json::g_itemsKey, ordered_json::object()).first.value();
    items.get_ref<ordered_json::object_t&>().emplace_back(key, std::visit([](const auto& kind) { return toJson(kind); }, value));
}

void JsonOArchive::finish()
{
    Text& text = *m_text;
    if (text.m_bFinished)
    {
        return;
    }
    text.m_bFinished = true;
    if (!text.m_open.empty())
    {
        text.refuseUse("it is to be finished while " + text.getPlace(std::string()) + " is open", "close all sections first");
    }
    if (text.m_loss == Text::Loss::tooLong)
    {
        text.refuse(std::string(), "its text has at most " + std::to_string(text.m_limits.m_maxBytes) + " bytes");
    }
    if (text.m_loss != Text::Loss::none || !text.put(text.m_bBegun ? "\n]\n" : "[]\n", true))
    {
        throwSerializationMessage(eKOVISSerializationMessage::eSM_StreamFailed,
                                  SourcePlace{"void kovis::JsonOArchive::finish()", g_file, __LINE__}, "written");
    }
}
} // namespace kovis
