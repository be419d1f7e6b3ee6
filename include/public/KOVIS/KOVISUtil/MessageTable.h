#pragma once

#include "KOVIS/KOVISUtil/KOVISUtilExport.h"

#include <cstddef>

namespace kovis
{
/// One message of a domain: its number and its text, a boost::format pattern.
struct MessageText
{
    int m_number;
    const char* m_text;
};

/// The texts of one message domain. Define it constinit, with its texts in a constexpr array: it is then whole before any static
/// initialiser runs, and may be entered by whichever initialiser asks first. Safe from any thread.
class KOVISUTIL_EXPORT MessageTable
{
public:
    template <std::size_t N>
    constexpr MessageTable(const char* managerName, const char* domainKey, const MessageText (&texts)[N])
        : m_managerName(managerName), m_domainKey(domainKey), m_texts(texts), m_nbTexts(N)
    {
    }
    MessageTable(const MessageTable&) = delete;
    MessageTable& operator=(const MessageTable&) = delete;

    /// Enters the texts into the manager of that name, in the order of the table, unless that has been done. Always returns true.
    bool enter();

    /// Takes the texts out again, for a library that is unloaded; enter() may follow.
    void withdraw();

private:
    const char* m_managerName;
    const char* m_domainKey;
    const MessageText* m_texts;
    std::size_t m_nbTexts;
    bool m_bEntered = false;
};

/// Enters a table when its library is loaded and withdraws it when the library is unloaded: one static object beside each table.
class KOVISUTIL_EXPORT MessageTableHolder
{
public:
    explicit MessageTableHolder(MessageTable& table);
    ~MessageTableHolder();
    MessageTableHolder(const MessageTableHolder&) = delete;
    MessageTableHolder& operator=(const MessageTableHolder&) = delete;

private:
    MessageTable& m_table;
};
} // namespace kovis
