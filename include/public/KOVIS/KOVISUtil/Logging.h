#pragma once

#include "KOVIS/KOVISUtil/KOVISUtilExport.h"
#include "KOVIS/KOVISUtil/LogMessageManager.h"
#include "KOVIS/KOVISUtil/MessageMapRegistrator.h"

#include <log4cplus/logger.h>

#include <string>

namespace kovis
{
/// Name of the logger above all loggers of the platform, "KOVIS".
KOVISUTIL_EXPORT const std::string& getBaseLoggerName();

/// The base logger. With no log4cplus configuration it has one null appender and prints nothing; additivity is on.
KOVISUTIL_EXPORT log4cplus::Logger& getBaseLogger();

/// Writes a message to a logger. It filters nothing: ask isEnabledFor first.
KOVISUTIL_EXPORT void logMessage(log4cplus::Logger& logger, const int& level, const std::string& message, const std::string& file,
                                 int line);

/// The logger name, logger and message manager of one library, each made at its first use. One static object per library.
class KOVISUTIL_EXPORT LibraryLog
{
public:
    /// `library` is the library's name, as "KOVISCore"; the logger is named by the base logger's name, a dot and it.
    explicit LibraryLog(const char* library);

    const std::string& getLoggerName() const { return m_loggerName; }
    log4cplus::Logger& getLogger() { return m_logger; }
    LogMessageManager& getMessageManager() const { return *m_manager; }

private:
    std::string m_loggerName;
    log4cplus::Logger m_logger;
    LogMessageManager* m_manager;
};

KOVISUTIL_EXPORT log4cplus::Logger& getKOVISUtilLogger();
KOVISUTIL_EXPORT LogMessageManager& getKOVISUtilLogMessageManager();

/// Messages of this library.
struct eKOVISUtilErrors
{
    enum domain
    {
        eUE_UnknownMessage = 0,        ///< number, domain key, manager
        eUE_ClassAlreadyRegistred = 1, ///< class name
        eUE_UnknownClass = 2,          ///< class name
        eUE_NoCopySupport = 3,         ///< type name
        eUE_NoCreator = 4              ///< class name
    };
};

template <>
struct KOVISUTIL_EXPORT MessageMapRegistrator<eKOVISUtilErrors, void>
{
    static bool process();
};
} // namespace kovis
