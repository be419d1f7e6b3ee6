// Instruction sets and what KOVIS_MAX_INSTRUCTION_SET hides. The variable is read once, so each value needs a process of its own:
// this program again, which answers from a static initialiser.
#include "KOVIS/KOVISCore/isAvailable.h"
#include "KOVIS/KOVISCore/ComputerInfoPool.h"
#include "KOVIS/KOVISCore/KOVISCoreLog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <log4cplus/consoleappender.h>

#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace
{
using namespace kovis;
using testing::HasSubstr;
using testing::Not;

using Sets = eInstructionSet;
constexpr std::array<Sets::domain, 6> g_sets = {Sets::eIS_Generic, Sets::eIS_SSE2, Sets::eIS_AVX,
                                                Sets::eIS_AVX2,    Sets::eIS_FMA3, Sets::eIS_AVX512};

std::string getAnswer()
{
    std::string answer;
    for (const Sets::domain set : g_sets)
    {
        answer += core::isAvailable(set) ? '1' : '0';
    }
    return answer;
}

const bool g_bAnswered = []
{
    const char* const question = std::getenv("KOVIS_TEST_QUESTION");
    if (question == nullptr)
    {
        return false;
    }
    if (std::string(question) == "log")
    {
        log4cplus::SharedAppenderPtr appender(new log4cplus::ConsoleAppender(false, true));
        getBaseLogger().addAppender(appender);
    }
    std::string answer = getAnswer();
    answer = "[" + answer + getAnswer() + "]\n";
    std::fputs(answer.c_str(), stdout);
    std::fflush(stdout);
    _exit(0);
}();

// What a process with that value of the variable says, on both outputs.
std::string ask(const char* value, const char* question = "sets")
{
    std::string self(4096, '\0');
    const ssize_t length = readlink("/proc/self/exe", self.data(), self.size());
    self.resize(length > 0 ? static_cast<std::size_t>(length) : 0);
    const std::string setting =
        value == nullptr ? "-u KOVIS_MAX_INSTRUCTION_SET" : "KOVIS_MAX_INSTRUCTION_SET='" + std::string(value) + "'";
    const std::string command = "env " + setting + " KOVIS_TEST_QUESTION=" + question + " '" + self + "' 2>&1";
    FILE* const pipe = popen(command.c_str(), "r");
    std::string said;
    std::array<char, 256> part{};
    while (pipe != nullptr && std::fgets(part.data(), part.size(), pipe) != nullptr)
    {
        said += part.data();
    }
    if (pipe != nullptr)
    {
        pclose(pipe);
    }
    return said;
}

// What this processor has, as the compiler's own query sees it.
std::string getProcessor()
{
    __builtin_cpu_init();
    const bool bAvx = __builtin_cpu_supports("avx") != 0;
    const bool bAvx512 = __builtin_cpu_supports("avx512f") != 0 && __builtin_cpu_supports("avx512bw") != 0 &&
                         __builtin_cpu_supports("avx512dq") != 0 && __builtin_cpu_supports("avx512vl") != 0;
    const std::array<bool, 6> has = {
        true, true, bAvx, __builtin_cpu_supports("avx2") != 0, bAvx && __builtin_cpu_supports("fma") != 0, bAvx512};
    std::string answer;
    for (const bool bHas : has)
    {
        answer += bHas ? '1' : '0';
    }
    return answer;
}

std::string hide(const std::string& processor, std::size_t nbVisible)
{
    std::string answer = processor;
    for (std::size_t i = nbVisible; i < answer.size(); ++i)
    {
        answer[i] = '0';
    }
    return "[" + answer + answer + "]\n";
}

TEST(IsAvailable, ShowsWhatTheProcessorHas)
{
    EXPECT_EQ(hide(getProcessor(), 6), ask(nullptr));
    EXPECT_EQ(hide(getProcessor(), 6), ask(""));
}

TEST(IsAvailable, TheVariableHidesWhatIsStronger)
{
    const std::string processor = getProcessor();
    EXPECT_EQ(hide(processor, 1), ask("generic"));
    EXPECT_EQ(hide(processor, 2), ask("sse2"));
    EXPECT_EQ(hide(processor, 3), ask("avx"));
    EXPECT_EQ(hide(processor, 4), ask("avx2"));
    EXPECT_EQ(hide(processor, 5), ask("fma3"));
    EXPECT_EQ(hide(processor, 6), ask("avx512"));
}

TEST(IsAvailable, AnUnknownNameHidesNothingAndIsLogged)
{
    const std::string everything = hide(getProcessor(), 6);
    // Nothing on the terminal without a configuration.
    EXPECT_EQ(everything, ask("AVX2"));
    const std::string logged = ask("sse3", "log");
    EXPECT_THAT(logged, HasSubstr(everything));
    EXPECT_THAT(logged, HasSubstr("KOVIS_MAX_INSTRUCTION_SET is 'sse3'"));
    EXPECT_THAT(logged, HasSubstr("generic, sse2, avx, avx2, fma3, avx512"));
    EXPECT_EQ(logged.find("sse3"), logged.rfind("sse3"));
    EXPECT_THAT(ask("sse2", "log"), Not(HasSubstr("ERROR")));
}

TEST(IsAvailable, ANumberWithoutASetIsNeverAvailable)
{
    for (const int number : {-1, 2, 3, 4, 9, 100})
    {
        EXPECT_FALSE(core::isAvailable(static_cast<Sets::domain>(number))) << number;
    }
}

TEST(IsAvailable, KnowsItsNames)
{
    EXPECT_STREQ("generic, sse2, avx, avx2, fma3, avx512", core::getInstructionSetNames());
    for (const char* const name : {"generic", "sse2", "avx", "avx2", "fma3", "avx512"})
    {
        EXPECT_TRUE(core::isInstructionSetName(name)) << name;
    }
    for (const char* const name : {"", "SSE2", "avx2 ", "sse", "generic, sse2"})
    {
        EXPECT_FALSE(core::isInstructionSetName(name)) << name;
    }
}

TEST(ComputerInfoPool, KnowsThisComputer)
{
    const core::BaseComputerInfo& local = core::ComputerInfoPool::getInstance().getLocalComputerInfo();
    EXPECT_EQ(&local, &core::ComputerInfoPool::getInstance().getLocalComputerInfo());
    EXPECT_FALSE(local.getId().isNil());
    EXPECT_GE(local.getComputerDescription().getProcessorDescription().getNbProcessors(), 1U);
    EXPECT_GE(local.getComputerDescription().getGpuDescription().getNbDevices(), 0);
}

TEST(CoreMessages, StandInTheManager)
{
    const LogMessageManager& manager = core::getKOVISCoreLogMessageManager();
    EXPECT_EQ("KOVISCore", manager.getName());
    EXPECT_EQ(19U, manager.getNbMessages("N5kovis4core12eCoreMessage6domainE"));
    EXPECT_EQ("Action %s was cancelled",
              manager.getMessage(typeid(core::eCoreMessage::domain).name(), core::eCoreMessage::eCM_Cancelled));
    EXPECT_EQ("KOVIS.KOVISCore", core::getKOVISCoreLogger().getName());
    EXPECT_TRUE(MessageMapRegistrator<core::eCoreMessage>::process());
}
} // namespace
