#include "KOVISIPL/KOVISIPLColor/KOVISIPLColorLog.h"

#include "KOVIS/KOVISBaseProcessing/ProcessingMessages.h"
#include "KOVIS/KOVISUtil/ThrowMessage.h"
#include "KOVISIPL/KOVISIPLColor/Processor/entryFunction.h"
#include "KOVISIPL/KOVISIPLColor/throwColorText.h"

#include <boost/thread/mutex.hpp>

namespace kovis::imaproc::color
{
KOVIS_DEFINE_EXCEPTION(KOVISIPLColorException);

namespace
{
struct LoggerNameMutex
{
    static boost::mutex& get()
    {
        static boost::mutex g_mutex;
        return g_mutex;
    }
};

struct LoggerMutex
{
    static boost::mutex& get()
    {
        static boost::mutex g_mutex;
        return g_mutex;
    }
};

struct ManagerMutex
{
    static boost::mutex& get()
    {
        static boost::mutex g_mutex;
        return g_mutex;
    }
};

bool makeMutexes()
{
    LoggerNameMutex::get();
    LoggerMutex::get();
    ManagerMutex::get();
    return true;
}

[[maybe_unused]] const bool g_bMutexesMade = makeMutexes();
} // namespace

const std::string& getKOVISIPLColorLoggerName()
{
    const boost::mutex::scoped_lock lock(LoggerNameMutex::get());
    static const std::string g_loggerName(getBaseLoggerName() + ".KOVISIPLColor");
    return g_loggerName;
}

log4cplus::Logger& getKOVISIPLColorLogger()
{
    (void)getBaseLogger();                                  // keeps the library silent where nothing is configured
    const std::string& name = getKOVISIPLColorLoggerName(); // before the lock: the two are not nested
    const boost::mutex::scoped_lock lock(LoggerMutex::get());
    static log4cplus::Logger g_logger(log4cplus::Logger::getInstance(name));
    return g_logger;
}

LogMessageManager& getKOVISIPLColorLogMessageManager()
{
    const boost::mutex::scoped_lock lock(ManagerMutex::get());
    static LogMessageManager* const g_manager = LogMessageManager::getInstance("KOVISIPLColor");
    return *g_manager;
}

void throwColorText(const std::string& text, const char* function, const char* file, unsigned int line)
{
    kovis::detail::logIfEnabled(getKOVISIPLColorLogger(), log4cplus::ERROR_LOG_LEVEL, getKOVISIPLColorLogMessageManager(), text,
                                {function, file, line});
    throw KOVISIPLColorException(text, function, file, line);
}

void details::throwNullProcessor(const std::string& typeName, const char* file, unsigned int line)
{
    const std::string function = "boost::shared_ptr<kovis::image::BaseImage> "
                                 "kovis::imaproc::color::getAsyncProcessorOutput(boost::shared_ptr<" +
                                 typeName + ">)";
    processor::throwProcessingMessage(processor::eProcessorMessage::ePM_NullProcessor, SourcePlace{function.c_str(), file, line});
}
} // namespace kovis::imaproc::color
