#include "KOVIS/KOVISUtil/ThrowMessage.h"

#include <log4cplus/loggingmacros.h>

namespace kovis::detail
{
namespace
{
const char* const g_failureText = "Exception thrown while processing message";

void logFailure(const SourcePlace& place)
{
    log4cplus::Logger& logger = getBaseLogger();
    if (logger.isEnabledFor(log4cplus::ERROR_LOG_LEVEL))
    {
        log4cplus::tostringstream& stream = log4cplus::detail::get_macro_body_oss();
        stream << g_failureText;
        log4cplus::detail::macro_forced_log(logger, log4cplus::ERROR_LOG_LEVEL, stream.str(), place.m_file,
                                            static_cast<int>(place.m_line), place.m_function);
    }
}
} // namespace

void throwMessageFailure(const SourcePlace& place)
{
    try
    {
        throw;
    }
    catch (const BaseException& e)
    {
        logFailure(place);
        throw BaseException(g_failureText, place.m_function, place.m_file, place.m_line, e);
    }
    catch (const std::exception& e)
    {
        logFailure(place);
        throw BaseException(g_failureText, place.m_function, place.m_file, place.m_line, e);
    }
    catch (...)
    {
        logFailure(place);
        throw BaseException(g_failureText, place.m_function, place.m_file, place.m_line, UnHandleException());
    }
}

void logIfEnabled(log4cplus::Logger logger, int level, const LogMessageManager& manager, const std::string& text,
                  const SourcePlace& place)
{
    if (logger.isEnabledFor(level))
    {
        LogMessageFormater formater(manager);
        formater << text;
        logMessage(logger, level, formater.string(), place.m_file, static_cast<int>(place.m_line));
    }
}
} // namespace kovis::detail
