#include "Commands.h"

#include <csignal>
#include <iostream>

int main(int argc, char** argv)
{
    // A file that would outgrow the limit of the shell is then an error that is told, and its rest is taken away.
    std::signal(SIGXFSZ, SIG_IGN);
    return kovis::tool::runCommandLine(argc, argv, std::cout, std::cerr);
}
