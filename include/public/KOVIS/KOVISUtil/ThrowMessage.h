#pragma once

#include "KOVIS/KOVISUtil/BaseException.h"
#include "KOVIS/KOVISUtil/LogMessageFormater.h"
#include "KOVIS/KOVISUtil/Logging.h"

#include <log4cplus/loglevel.h>

#include <string>
#include <type_traits>
#include <typeinfo>

namespace kovis
{
/// The place that a message names. The texts live as long as the call; paths are given from the module on and functions in one
/// form, so that they do not depend on the compiler or the machine that built the library.
struct SourcePlace
{
    const char* m_function;
    const char* m_file;
    unsigned int m_line;
};

namespace detail
{
/// Reports that a message could not be built, and throws a BaseException with what is being handled as its cause.
[[noreturn]] KOVISUTIL_EXPORT void throwMessageFailure(const SourcePlace& place);

/// Logs `text` if the logger is enabled for the level.
KOVISUTIL_EXPORT void logIfEnabled(log4cplus::Logger logger, int level, const LogMessageManager& manager, const std::string& text,
                                   const SourcePlace& place);
} // namespace detail

/// Builds message `number` of the domain from the arguments and logs it at `level` if the logger is enabled for it.
/// Returns the text. A text that does not fit its arguments becomes a BaseException "Exception thrown while processing message"
/// whose cause is the format error.
template <class... TArguments>
std::string formatAndLog(const LogMessageManager& manager, log4cplus::Logger logger, int level, const std::string& domainKey,
                         int number, const SourcePlace& place, const TArguments&... arguments)
{
    try
    {
        LogMessageFormater formater(manager);
        formater.setMsgId(domainKey, number);
        (void)(formater % ... % arguments);
        const std::string text = formater.string();
        detail::logIfEnabled(logger, level, manager, text, place);
        return text;
    }
    catch (...)
    {
        detail::throwMessageFailure(place);
    }
}

/// The throw pattern of the platform: builds the message, logs it at ERROR, and throws it as TException.
template <class TException, class... TArguments>
[[noreturn]] void throwMessage(const LogMessageManager& manager, log4cplus::Logger logger, const std::string& domainKey,
                               int number, const SourcePlace& place, const TArguments&... arguments)
{
    const std::string text = formatAndLog(manager, logger, log4cplus::ERROR_LOG_LEVEL, domainKey, number, place, arguments...);
    throw TException(text, place.m_function, place.m_file, place.m_line);
}

/// The same, with the message named by its enumerator: throwMessage<X>(manager, logger, eMessage::eM_Name, place, arguments...).
template <class TException, class TDomain, class... TArguments>
requires std::is_enum_v<TDomain>
[[noreturn]] void throwMessage(const LogMessageManager& manager, log4cplus::Logger logger, TDomain message,
                               const SourcePlace& place, const TArguments&... arguments)
{
    throwMessage<TException>(manager, logger, std::string(typeid(TDomain).name()), static_cast<int>(message), place,
                             arguments...);
}
} // namespace kovis
