#include "fuzz/readArchive.h"

#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <vector>

// Usage: replayCorpus FOLDER...: reads every file of the folders as the fuzzer does, and each of them cut at a hundred places.
int main(int argc, char** argv)
{
    unsigned long nbFiles = 0;
    for (int i = 1; i < argc; ++i)
    {
        for (const auto& entry : std::filesystem::directory_iterator(argv[i]))
        {
            std::cout << entry.path().filename().string() << std::endl; // the last name is the culprit
            std::ifstream file(entry.path(), std::ios::binary);
            const std::vector<char> bytes((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
            const auto* const data = reinterpret_cast<const std::uint8_t*>(bytes.data());
            kovis::test::readArchive(data, bytes.size());
            for (std::size_t part = 0; part < 100; ++part)
            {
                kovis::test::readArchive(data, bytes.size() * part / 100);
            }
            ++nbFiles;
        }
    }
    std::cout << nbFiles << " files\n";
    return nbFiles > 20 ? 0 : 1;
}
