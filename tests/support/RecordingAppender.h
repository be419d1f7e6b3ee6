#pragma once

#include <log4cplus/appender.h>
#include <log4cplus/logger.h>
#include <log4cplus/spi/loggingevent.h>

#include <mutex>
#include <string>
#include <vector>

namespace kovis::test
{
/// What an application's appender would see: keeps every event that reaches it.
class RecordingAppender : public log4cplus::Appender
{
public:
    struct Event
    {
        std::string m_logger;
        int m_level;
        std::string m_message;
        std::string m_file;
        int m_line;
        std::string m_function;
    };

    ~RecordingAppender() override { destructorImpl(); }
    void close() override { closed = true; }

    std::vector<Event> getEvents() const
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return m_events;
    }

protected:
    void append(const log4cplus::spi::InternalLoggingEvent& event) override
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_events.push_back({event.getLoggerName(), event.getLogLevel(), event.getMessage(), event.getFile(), event.getLine(),
                            event.getFunction()});
    }

private:
    mutable std::mutex m_mutex;
    std::vector<Event> m_events;
};

/// Hangs a recording appender on a logger for as long as this object lives.
class Recording
{
public:
    explicit Recording(const log4cplus::Logger& logger)
        : m_logger(logger), m_appender(new RecordingAppender()), m_shared(m_appender)
    {
        m_logger.addAppender(m_shared);
    }
    ~Recording() { m_logger.removeAppender(m_shared); }
    Recording(const Recording&) = delete;
    Recording& operator=(const Recording&) = delete;

    std::vector<RecordingAppender::Event> getEvents() const { return m_appender->getEvents(); }

private:
    log4cplus::Logger m_logger;
    RecordingAppender* m_appender;
    log4cplus::SharedAppenderPtr m_shared;
};
} // namespace kovis::test
