#include "KOVIS/KOVISUtil/Logging.h"

#include "KOVIS/KOVISUtil/MessageTable.h"

#include <log4cplus/nullappender.h>

namespace kovis
{
namespace
{
constexpr MessageText g_utilErrors[] = {
    {eKOVISUtilErrors::eUE_UnknownMessage,
     "No message %d in the domain %s of the manager %s: load the library that it belongs to"},
    {eKOVISUtilErrors::eUE_ClassAlreadyRegistred, "Class %s is registered already: the first registration stays"},
    {eKOVISUtilErrors::eUE_UnknownClass, "No class %s is registered: load the library that it belongs to"},
    {eKOVISUtilErrors::eUE_NoCopySupport, "Class %s cannot be copied: make a new object and set its attributes"},
    {eKOVISUtilErrors::eUE_NoCreator, "Class %s cannot be registered without the two functions that make its objects"},
};

constinit MessageTable g_utilErrorTable("KOVISUtil", "N5kovis16eKOVISUtilErrors6domainE", g_utilErrors);

// This library stays in the process, and so do its texts: there is nothing to withdraw.
[[maybe_unused]] const bool g_bUtilErrorsRegistred = MessageMapRegistrator<eKOVISUtilErrors>::process();

log4cplus::Logger* makeBaseLogger()
{
    auto* const logger = new log4cplus::Logger(log4cplus::Logger::getInstance(getBaseLoggerName()));
    // Keeps log4cplus from writing to the terminal that it found no appender. Additivity is left as it is, so that the appenders
    // of an application, on this logger or above it, get everything, whether they were there before or come later.
    const log4cplus::SharedAppenderPtr appender(new log4cplus::NullAppender());
    appender->setName("KOVISNull");
    logger->addAppender(appender);
    return logger;
}

// Never destroyed: other libraries log and ask for texts from their own static destructors.
LibraryLog& getUtilLog()
{
    static auto* const g_log = new LibraryLog("KOVISUtil");
    return *g_log;
}
} // namespace

const std::string& getBaseLoggerName()
{
    static const auto* const g_name = new std::string("KOVIS");
    return *g_name;
}

log4cplus::Logger& getBaseLogger()
{
    static log4cplus::Logger* const g_logger = makeBaseLogger();
    return *g_logger;
}

void logMessage(log4cplus::Logger& logger, const int& level, const std::string& message, const std::string& file, int line)
{
    logger.forcedLog(level, message, file.c_str(), line, "");
}

LibraryLog::LibraryLog(const char* library)
    : m_loggerName(getBaseLogger().getName() + "." + library),
      m_logger(log4cplus::Logger::getInstance(m_loggerName)),
      m_manager(LogMessageManager::getInstance(library))
{
}

log4cplus::Logger& getKOVISUtilLogger()
{
    return getUtilLog().getLogger();
}

LogMessageManager& getKOVISUtilLogMessageManager()
{
    MessageMapRegistrator<eKOVISUtilErrors>::process();
    return getUtilLog().getMessageManager();
}

bool MessageMapRegistrator<eKOVISUtilErrors>::process()
{
    return g_utilErrorTable.enter();
}
} // namespace kovis
