#include "KOVISIPLColor/archive/ArchivedRuns.h"

#include <fstream>
#include <iostream>

// Usage: ArchiveChild ARCHIVE RESULT: reads the processors of an archive, runs them, and writes the bytes of all results.
int main(int argc, char** argv)
{
    if (argc != 3)
    {
        return 2;
    }
    try
    {
        std::ifstream file(argv[1], std::ios::binary);
        std::ostringstream text;
        text << file.rdbuf();
        std::ofstream results(argv[2], std::ios::binary);
        for (const auto& object : kovis::test::readObjects(text.str()))
        {
            const std::vector<unsigned char> bytes = kovis::test::run(object);
            results.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
        }
        return results.flush() ? 0 : 1;
    }
    catch (const std::exception& e)
    {
        std::cerr << e.what() << "\n";
        return 1;
    }
}
