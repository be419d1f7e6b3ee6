#include "Commands.h"

#include <iostream>

int main(int argc, char** argv)
{
    return kovis::tool::runCommandLine(argc, argv, std::cout, std::cerr);
}
