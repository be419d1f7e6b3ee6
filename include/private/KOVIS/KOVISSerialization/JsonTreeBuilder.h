#pragma once

#include "KOVIS/KOVISSerialization/JsonTree.h"

#include <cstddef>
#include <cstdint>
#include <exception>
#include <string>
#include <vector>

namespace kovis::json
{
/// Builds sections from the events of the JSON parser, which calls the functions of lower-case names. Whatever does not belong
/// into an archive throws at once, before anything is kept of it.
class JsonTreeBuilder
{
public:
    explicit JsonTreeBuilder(const JsonArchiveLimits& limits);

    JsonSection takeTree();

    bool null();
    bool boolean(bool value);
    bool number_integer(std::int64_t value);
    bool number_unsigned(std::uint64_t value);
    bool number_float(double value, const std::string& text);
    bool string(std::string& value);
    template <class TBinary>
    bool binary(TBinary&)
    {
        refuse("binary data");
    }
    bool start_object(std::size_t nbElements);
    bool key(std::string& value);
    bool end_object();
    bool start_array(std::size_t nbElements);
    bool end_array();
    template <class TException>
    [[noreturn]] bool parse_error(std::size_t, const std::string&, const TException& error)
    {
        refuseText(error);
    }

    /// Throws: the text holds more than that at the place that has been reached.
    [[noreturn]] void refuseMore(unsigned long limit, const char* what) const;

private:
    /// What the parser is in.
    enum class Place
    {
        outside,  ///< of the text's array
        sections, ///< an array of sections
        section,  ///< a section's object
        items,    ///< the object of a section's items
        list      ///< the array of an item's numbers
    };
    /// An open section, and which members of its object have been seen.
    struct OpenSection
    {
        JsonSection* m_section;
        bool m_bName = false;
        bool m_bItems = false;
        bool m_bSections = false;
    };

    Place getPlace() const { return m_places.back(); }
    std::string describe() const;
    /// Throws: this stands where something else is expected.
    [[noreturn]] void refuse(const std::string& found) const;
    [[noreturn]] void refuseText(const std::exception& error) const;
    void count(unsigned long& counter, unsigned long limit, const char* what) const;
    void checkLength(const std::string& text) const;
    /// Keeps a value of an item. False outside the items.
    bool keep(JsonValue&& value);
    void appendNumber(bool bFits, float value, const std::string& shown);
    template <class TInteger>
    bool takeInteger(TInteger value, float element);

    const JsonArchiveLimits m_limits;
    JsonSection m_root;
    std::vector<Place> m_places{Place::outside};
    std::vector<OpenSection> m_open;
    std::string m_key;                     ///< the last one of the open section's object, or of its items
    std::vector<float>* m_pList = nullptr; ///< that is being read
    unsigned long m_nbSections = 0;
    unsigned long m_nbItems = 0;
    unsigned long m_nbNumbers = 0;
};
} // namespace kovis::json
