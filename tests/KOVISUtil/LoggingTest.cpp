#include "KOVIS/KOVISUtil/Logging.h"
#include "support/RecordingAppender.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <memory>
#include <string>
#include <sys/wait.h>

namespace kovis
{
namespace
{
struct Outcome
{
    int m_status;
    std::string m_output;
};

/// Runs the program beside this test and gives what it wrote to either stream.
Outcome runChild(const std::string& mode)
{
    const std::string command = std::string("\"") + KOVIS_LOGGING_CHILD + "\" " + mode + " 2>&1";
    std::FILE* const pipe = popen(command.c_str(), "r");
    if (pipe == nullptr)
    {
        return {-1, "cannot start " + command};
    }
    std::string output;
    std::array<char, 256> buffer{};
    while (std::fgets(buffer.data(), static_cast<int>(buffer.size()), pipe) != nullptr)
    {
        output += buffer.data();
    }
    const int status = pclose(pipe);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, output};
}

unsigned long countOf(const std::string& text, const std::string& part)
{
    unsigned long count = 0;
    for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + part.size()))
    {
        ++count;
    }
    return count;
}
} // namespace

TEST(Logging, namesOfLoggers)
{
    EXPECT_EQ("KOVIS", getBaseLoggerName());
    EXPECT_EQ("KOVIS", getBaseLogger().getName());
    EXPECT_EQ("KOVIS.KOVISUtil", getKOVISUtilLogger().getName());

    LibraryLog log("LoggingTestLibrary");
    EXPECT_EQ("KOVIS.LoggingTestLibrary", log.getLoggerName());
    EXPECT_EQ("KOVIS.LoggingTestLibrary", log.getLogger().getName());
    EXPECT_EQ(LogMessageManager::getInstance("LoggingTestLibrary"), &log.getMessageManager());
}

TEST(Logging, theBaseLoggerHasOneAppenderAndIsAdditive)
{
    EXPECT_EQ(1u, getBaseLogger().getAllAppenders().size());
    EXPECT_TRUE(getBaseLogger().getAdditivity());
    EXPECT_EQ(&getBaseLogger(), &getBaseLogger());
}

TEST(Logging, logMessageWritesWithoutFiltering)
{
    log4cplus::Logger logger = log4cplus::Logger::getInstance("KOVIS.LoggingTest");
    logger.setLogLevel(log4cplus::FATAL_LOG_LEVEL);
    const test::Recording recording(logger);
    logMessage(logger, log4cplus::TRACE_LOG_LEVEL, "text", "KOVIS/File.cpp", 9);
    logger.setLogLevel(log4cplus::NOT_SET_LOG_LEVEL);
    const auto events = recording.getEvents();
    ASSERT_EQ(1u, events.size());
    EXPECT_EQ("text", events[0].m_message);
    EXPECT_EQ(0, events[0].m_level);
    EXPECT_EQ("KOVIS/File.cpp", events[0].m_file);
    EXPECT_EQ(9, events[0].m_line);
}

TEST(Logging, appendersOnTheRootAndOnTheBaseLoggerGetEverything)
{
    const test::Recording root(log4cplus::Logger::getRoot());
    const test::Recording base(getBaseLogger());
    logMessage(getKOVISUtilLogger(), log4cplus::ERROR_LOG_LEVEL, "text", "KOVIS/File.cpp", 9);
    ASSERT_EQ(1u, root.getEvents().size());
    ASSERT_EQ(1u, base.getEvents().size());
    EXPECT_EQ("KOVIS.KOVISUtil", root.getEvents()[0].m_logger);
}

TEST(Logging, nothingIsWrittenWithoutAConfiguration)
{
    const Outcome outcome = runChild("silent");
    EXPECT_EQ(0, outcome.m_status);
    EXPECT_EQ("", outcome.m_output);
}

// Shows that the test above could see a warning of log4cplus.
TEST(Logging, anotherLoggerWithoutAppendersDoesWarn)
{
    const Outcome outcome = runChild("stranger");
    EXPECT_EQ(0, outcome.m_status);
    EXPECT_NE(std::string::npos, outcome.m_output.find("No appenders could be found"));
}

TEST(Logging, aConfigurationMadeBeforeOrAfterIsUsedAsItIs)
{
    for (const char* mode : {"root-before", "root-after", "base-before", "base-after"})
    {
        const Outcome outcome = runChild(mode);
        EXPECT_EQ(0, outcome.m_status) << mode;
        EXPECT_EQ(1u, countOf(outcome.m_output, "Class kovis::X cannot be copied")) << mode << ": " << outcome.m_output;
        EXPECT_EQ(1u, countOf(outcome.m_output, "Exception thrown while processing message")) << mode << ": " << outcome.m_output;
        EXPECT_EQ(std::string::npos, outcome.m_output.find("log4cplus:")) << mode << ": " << outcome.m_output;
    }
}

TEST(Logging, aConfigurationThatSwitchesTheLoggerOffIsKept)
{
    const Outcome outcome = runChild("off-before");
    EXPECT_EQ(0, outcome.m_status);
    EXPECT_EQ("", outcome.m_output);
}
} // namespace kovis
