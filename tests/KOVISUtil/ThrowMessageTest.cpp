#include "KOVIS/KOVISUtil/ThrowMessage.h"
#include "support/RecordingAppender.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace kovis
{
namespace
{
const char* const g_key = "key";
const char* const g_failureText = "Exception thrown while processing message";
const SourcePlace g_place{"void kovis::Test::f(int)", "KOVIS/Test/Test.cpp", 77};

const LogMessageManager& getManager()
{
    LogMessageManager& manager = *LogMessageManager::getInstance("ThrowTest");
    manager.addMessage(g_key, 0, "object %s has %d parts");
    manager.addMessage(g_key, 1, "100%% %s");
    return manager;
}

log4cplus::Logger getLogger()
{
    return log4cplus::Logger::getInstance(getBaseLoggerName() + ".ThrowTest");
}

/// An appender that fails with something that is no exception class, or with one that is.
template <class T>
class FailingAppender : public log4cplus::Appender
{
public:
    explicit FailingAppender(const T& thrown) : m_thrown(thrown) {}
    ~FailingAppender() override { destructorImpl(); }
    void close() override { closed = true; }

protected:
    void append(const log4cplus::spi::InternalLoggingEvent&) override { throw m_thrown; }

private:
    T m_thrown;
};

template <class T>
void expectCauseOfFailingAppender(const T& thrown, const std::string& causeText)
{
    log4cplus::Logger logger = log4cplus::Logger::getInstance("NotOurs.Failing");
    logger.setAdditivity(false);
    const log4cplus::SharedAppenderPtr appender(new FailingAppender<T>(thrown));
    logger.addAppender(appender);
    try
    {
        throwMessage<KOVISUtilException>(getManager(), logger, g_key, 0, g_place, "x", 1);
    }
    catch (const KOVISUtilException&)
    {
        ADD_FAILURE() << "the failure of the log was lost";
    }
    catch (const BaseException& e)
    {
        EXPECT_STREQ(g_failureText, e.what());
        EXPECT_TRUE(e.getCause());
        EXPECT_STREQ(causeText.c_str(), e.getCause() ? e.getCause()->what() : "");
    }
    logger.removeAppender(appender);
}
} // namespace

TEST(ThrowMessage, logsAtErrorAndThrows)
{
    const test::Recording recording(getLogger());
    try
    {
        throwMessage<KOVISUtilException>(getManager(), getLogger(), g_key, 0, g_place, std::string("box"), 3);
        FAIL() << "nothing was thrown";
    }
    catch (const KOVISUtilException& e)
    {
        EXPECT_STREQ("object box has 3 parts", e.what());
        EXPECT_EQ(g_place.m_function, e.getFunction());
        EXPECT_EQ(g_place.m_file, e.getFile());
        EXPECT_EQ(77u, e.getLine());
        EXPECT_FALSE(e.getCause());
    }
    const auto events = recording.getEvents();
    ASSERT_EQ(1u, events.size());
    EXPECT_EQ("KOVIS.ThrowTest", events[0].m_logger);
    EXPECT_EQ(40000, events[0].m_level);
    EXPECT_EQ("object box has 3 parts", events[0].m_message);
    EXPECT_EQ("KOVIS/Test/Test.cpp", events[0].m_file);
    EXPECT_EQ(77, events[0].m_line);
}

TEST(ThrowMessage, takesAnEnumerator)
{
    try
    {
        throwMessage<KOVISUtilException>(getKOVISUtilLogMessageManager(), getKOVISUtilLogger(),
                                         eKOVISUtilErrors::eUE_NoCopySupport, g_place, "kovis::X");
        FAIL() << "nothing was thrown";
    }
    catch (const KOVISUtilException& e)
    {
        EXPECT_STREQ("Class kovis::X cannot be copied: make a new object and set its attributes", e.what());
    }
}

TEST(ThrowMessage, asksTheLoggerWhetherItIsEnabled)
{
    log4cplus::Logger logger = getLogger();
    const test::Recording recording(logger);
    logger.setLogLevel(log4cplus::FATAL_LOG_LEVEL);
    EXPECT_THROW(throwMessage<KOVISUtilException>(getManager(), logger, g_key, 0, g_place, "box", 3), KOVISUtilException);
    logger.setLogLevel(log4cplus::NOT_SET_LOG_LEVEL);
    EXPECT_TRUE(recording.getEvents().empty());
}

TEST(ThrowMessage, doesNotFormatATextASecondTime)
{
    const test::Recording recording(getLogger());
    EXPECT_EQ("100% 5%s", formatAndLog(getManager(), getLogger(), log4cplus::ERROR_LOG_LEVEL, g_key, 1, g_place, "5%s"));
    ASSERT_EQ(1u, recording.getEvents().size());
    EXPECT_EQ("100% 5%s", recording.getEvents()[0].m_message);
}

TEST(ThrowMessage, aFormatErrorBecomesABaseExceptionWithItsCause)
{
    const test::Recording recording(getBaseLogger());
    try
    {
        throwMessage<KOVISUtilException>(getManager(), getLogger(), g_key, 0, g_place, "box");
        FAIL() << "nothing was thrown";
    }
    catch (const KOVISUtilException&)
    {
        FAIL() << "the message was built without its arguments";
    }
    catch (const BaseException& e)
    {
        EXPECT_STREQ(g_failureText, e.what());
        EXPECT_EQ(g_place.m_function, e.getFunction());
        EXPECT_EQ(g_place.m_file, e.getFile());
        EXPECT_EQ(77u, e.getLine());
        ASSERT_TRUE(e.getCause());
        EXPECT_STREQ(boost::io::too_few_args(0, 0).what(), e.getCause()->what());
    }
    const auto events = recording.getEvents();
    ASSERT_EQ(1u, events.size());
    EXPECT_EQ("KOVIS", events[0].m_logger);
    EXPECT_EQ(40000, events[0].m_level);
    EXPECT_EQ(g_failureText, events[0].m_message);
    EXPECT_EQ("KOVIS/Test/Test.cpp", events[0].m_file);
    EXPECT_EQ(77, events[0].m_line);
    EXPECT_EQ(g_place.m_function, events[0].m_function);
}

TEST(ThrowMessage, tooManyArgumentsToo)
{
    try
    {
        throwMessage<KOVISUtilException>(getManager(), getLogger(), g_key, 0, g_place, "box", 3, 4);
        FAIL() << "nothing was thrown";
    }
    catch (const BaseException& e)
    {
        EXPECT_STREQ(g_failureText, e.what());
        ASSERT_TRUE(e.getCause());
        EXPECT_STREQ(boost::io::too_many_args(0, 0).what(), e.getCause()->what());
    }
}

TEST(ThrowMessage, anUnknownNumberIsABaseExceptionAsCause)
{
    try
    {
        throwMessage<KOVISUtilException>(getManager(), getLogger(), g_key, 5, g_place);
        FAIL() << "nothing was thrown";
    }
    catch (const BaseException& e)
    {
        EXPECT_STREQ(g_failureText, e.what());
        ASSERT_TRUE(e.getCause());
        // The place tells that the cause was taken as one of ours.
        EXPECT_EQ("KOVIS/KOVISUtil/LogMessageManager.cpp", e.getCause()->getFile());
        EXPECT_STREQ("No message 5 in the domain key of the manager ThrowTest: load the library that it belongs to",
                     e.getCause()->what());
    }
}

TEST(ThrowMessage, eachHandlerKeepsItsCause)
{
    expectCauseOfFailingAppender(BaseException("ours", "f", "F.cpp", 1), "ours");
    expectCauseOfFailingAppender(std::runtime_error("disk full"), "disk full");
    expectCauseOfFailingAppender(42, UnHandleException().what());
}

TEST(ThrowMessage, logOnlyReturnsTheText)
{
    log4cplus::Logger logger = getLogger();
    logger.setLogLevel(log4cplus::TRACE_LOG_LEVEL);
    const test::Recording recording(logger);
    EXPECT_EQ("object box has 3 parts",
              formatAndLog(getManager(), logger, log4cplus::TRACE_LOG_LEVEL, g_key, 0, g_place, "box", 3));
    logger.setLogLevel(log4cplus::NOT_SET_LOG_LEVEL);
    ASSERT_EQ(1u, recording.getEvents().size());
    EXPECT_EQ(0, recording.getEvents()[0].m_level);
}
} // namespace kovis
