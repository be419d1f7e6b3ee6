#include "kovis-color/Program.h"

#include "kovis-color/TestFiles.h"

#include <cstdlib>
#include <fcntl.h>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace kovis::tool::test
{
ProgramRun runProgram(const std::vector<std::string>& arguments, const std::string& environment)
{
    const TestFolder folder;
    std::vector<std::string> words = {KOVIS_COLOR_PROGRAM};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char*> pointers;
    for (std::string& word : words)
        pointers.push_back(word.data());
    pointers.push_back(nullptr);
    const std::string outPath = folder.getPath("out");
    const std::string errPath = folder.getPath("err");
    std::string setting = environment;

    const pid_t child = ::fork();
    if (child < 0)
        throw std::runtime_error("no process for the program");
    if (child == 0)
    {
        ::unsetenv("KOVIS_MAX_INSTRUCTION_SET");
        if (!setting.empty())
            ::putenv(setting.data());
        ::dup2(::open(outPath.c_str(), O_CREAT | O_WRONLY, 0600), STDOUT_FILENO);
        ::dup2(::open(errPath.c_str(), O_CREAT | O_WRONLY, 0600), STDERR_FILENO);
        ::execv(pointers[0], pointers.data());
        ::_exit(127);
    }
    int status = 0;
    if (::waitpid(child, &status, 0) != child)
        throw std::runtime_error("the program was lost");
    ProgramRun run;
    run.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    const Bytes out = readBytes(outPath);
    const Bytes err = readBytes(errPath);
    run.out.assign(out.begin(), out.end());
    run.err.assign(err.begin(), err.end());
    return run;
}
} // namespace kovis::tool::test
