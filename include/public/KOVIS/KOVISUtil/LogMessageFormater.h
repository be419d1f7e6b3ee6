#pragma once

#include "KOVIS/KOVISUtil/KOVISUtilExport.h"
#include "KOVIS/KOVISUtil/LogMessageManager.h"

#include <boost/format.hpp>

#include <sstream>
#include <string>
#include <typeinfo>

namespace kovis
{
/// Builds one message: free text by operator<<, then a text of the manager with its arguments by operator%.
/// A local object, not shared between threads.
class KOVISUTIL_EXPORT LogMessageFormater
{
public:
    explicit LogMessageFormater(const LogMessageManager& manager);
    ~LogMessageFormater();
    LogMessageFormater(const LogMessageFormater&) = delete;
    LogMessageFormater& operator=(const LogMessageFormater&) = delete;

    /// Takes the text of that key and number. Throws KOVISUtilException where there is none, and
    /// boost::io::bad_format_string where the text is no format.
    LogMessageFormater& setMsgId(const std::string& domainKey, int number);

    /// setMsgId with the key of the enumeration TDomain, as in formater[eRuleMessage::eRM_ColorSpaceEvaluated].
    template <class TDomain>
    LogMessageFormater& operator[](const TDomain& value)
    {
        return setMsgId(typeid(TDomain).name(), static_cast<int>(value));
    }

    /// Feeds one argument, with the semantics of boost::format: throws boost::io::too_many_args where the text has no place for
    /// it.
    template <class T>
    LogMessageFormater& operator%(const T& argument)
    {
        m_format % argument;
        return *this;
    }

    /// Adds to the free text that stands before the formatted message.
    template <class T>
    LogMessageFormater& operator<<(const T& text)
    {
        m_stream << text;
        return *this;
    }

    /// The free text, and after it the formatted message if one is set. Throws boost::io::too_few_args where arguments are
    /// missing.
    std::string string() const;

private:
    const LogMessageManager& m_manager;
    boost::format m_format;
    bool m_bMessageSet = false;
    std::ostringstream m_stream;
};
} // namespace kovis
