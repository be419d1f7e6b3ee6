#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <string>
#include <sys/wait.h>

// What the module writes to a program's terminal can only be seen from outside.

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
    const std::string command = std::string("\"") + KOVIS_RANGE_ERROR_CHILD + "\" " + mode + " 2>&1";
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

TEST(ColorSilence, ARefusedRangeWritesNothingWithoutAConfiguration)
{
    const Outcome outcome = runChild("");
    EXPECT_EQ(outcome.m_status, 0);
    EXPECT_EQ(outcome.m_output, "");
}

TEST(ColorSilence, AnAppenderOfTheUserGetsTheErrorOnce)
{
    const Outcome outcome = runChild("console");
    EXPECT_EQ(outcome.m_status, 0);
    EXPECT_EQ(outcome.m_output, "ERROR|KOVIS.KOVISIPLColor|Error: the image values does not match the range [0, 255]|"
                                "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImgLvl1\n");
}
} // namespace
