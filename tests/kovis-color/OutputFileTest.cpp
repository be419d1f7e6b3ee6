#include "OutputFile.h"
#include "PictureFile.h"
#include "ToolError.h"
#include "kovis-color/TestFiles.h"

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace kovis::tool::test
{
namespace
{
using Names = std::vector<std::string>;
namespace fs = std::filesystem;

void writeSmall(const std::string& path)
{
    PictureShape shape;
    shape.sizeX = 64;
    shape.sizeY = 64;
    shape.channels = 3;
    writePicture(path, viewOf(makePicture(shape)));
}
} // namespace

TEST(OutputFile, standsUnderItsNameOnlyAfterCommit)
{
    const TestFolder folder;
    const std::string path = folder.getPath("result.tif");
    {
        OutputFile file(path);
        EXPECT_FALSE(fs::exists(path));
        EXPECT_EQ(folder.getNames().size(), 1U);
        ASSERT_EQ(::write(file.getDescriptor(), "abc", 3), 3);
        file.commit();
    }
    EXPECT_EQ(folder.getNames(), Names{"result.tif"});
    EXPECT_EQ(readBytes(path), (Bytes{'a', 'b', 'c'}));
}

TEST(OutputFile, leavesNothingAndKeepsTheOldFileWhenItIsNotCommitted)
{
    const TestFolder folder;
    const std::string path = folder.getPath("result.tif");
    writeBytes(path, {'o', 'l', 'd'});
    {
        const OutputFile file(path);
    }
    EXPECT_EQ(folder.getNames(), Names{"result.tif"});
    EXPECT_EQ(readBytes(path), (Bytes{'o', 'l', 'd'}));
}

TEST(OutputFile, isReadableByWhomTheMaskAllows)
{
    const TestFolder folder;
    const mode_t mask = ::umask(022);
    {
        OutputFile file(folder.getPath("a.tif"));
        file.commit();
    }
    ::umask(mask);
    EXPECT_EQ(fs::status(folder.getPath("a.tif")).permissions(), static_cast<fs::perms>(0644));
}

TEST(OutputFile, refusesWhatIsNoPlainFile)
{
    const TestFolder folder;
    EXPECT_NE(getErrorOf([&] { OutputFile file(folder.getPath("")); }).find("is a folder; name a file in it"), std::string::npos);
    EXPECT_EQ(getErrorOf([] { OutputFile file("/dev/null"); }), "/dev/null: is not a plain file; write to a plain file");
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
    const std::string error = getErrorOf([&] { OutputFile file(folder.getPath("missing/a.tif")); });
    EXPECT_NE(error.find("cannot be written (No such file or directory); choose a folder that exists"), std::string::npos)
        << error;
}

TEST(OutputFile, followsASymbolicLink)
{
    const TestFolder folder;
    fs::create_directory(folder.getPath("other"));
    writeBytes(folder.getPath("other/real.tif"), {'x'});
    fs::create_symlink(folder.getPath("other/real.tif"), folder.getPath("link.tif"));
    writeSmall(folder.getPath("link.tif"));
    EXPECT_TRUE(fs::is_symlink(folder.getPath("link.tif")));
    EXPECT_EQ(readPicture(folder.getPath("other/real.tif")).shape.channels, 3U);
}

TEST(OutputFile, theInputIsRecognisedUnderAnotherName)
{
    const TestFolder folder;
    writeSmall(folder.getPath("in.tif"));
    fs::create_symlink("in.tif", folder.getPath("soft.tif"));
    fs::create_hard_link(folder.getPath("in.tif"), folder.getPath("hard.tif"));
    for (const char* name : {"in.tif", "./in.tif", "soft.tif", "hard.tif"})
    {
        try
        {
            checkNotTheInput(folder.getPath(name), folder.getPath("in.tif"));
            ADD_FAILURE() << name;
        }
        catch (const ToolError& error)
        {
            EXPECT_EQ(error.getExitCode(), eMisused);
        }
    }
    EXPECT_EQ(getErrorOf([&] { checkNotTheInput(folder.getPath("new.tif"), folder.getPath("in.tif")); }), "no error");
}

// A full disk, played by a limit on the size of files, in a process of its own.
TEST(OutputFile, aFullDiskIsAnErrorAndLeavesNothing)
{
    for (const char* name : {"a.tif", "a.png", "a.jpg"})
    {
        const TestFolder folder;
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0)
        {
            std::signal(SIGXFSZ, SIG_IGN);
            const rlimit limit = {1000, 1000};
            ::setrlimit(RLIMIT_FSIZE, &limit);
            const std::string error = getErrorOf([&] { writeSmall(folder.getPath(name)); });
            ::_exit(error.find("could not be written") != std::string::npos && folder.getNames().empty() ? 0 : 1);
        }
        int status = -1;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << name;
    }
}

TEST(OutputFile, aSignalRemovesTheTemporaryFile)
{
    const TestFolder folder;
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0)
    {
        const OutputFile file(folder.getPath("a.tif"));
        if (folder.getNames().size() != 1)
            ::_exit(1);
        std::raise(SIGTERM);
        ::_exit(2);
    }
    int status = -1;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGTERM) << status;
    EXPECT_TRUE(folder.getNames().empty());
}
} // namespace kovis::tool::test
