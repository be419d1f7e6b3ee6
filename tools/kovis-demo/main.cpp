// Helper of scripts/demo: makes a test chart, and a sheet that shows the channels of pictures.

#include "ContactSheet.h"
#include "PictureFile.h"
#include "TestChart.h"
#include "ToolError.h"

#include <cstdio>
#include <exception>
#include <filesystem>
#include <string>
#include <vector>

namespace
{
constexpr const char* g_usage = "usage: kovis-demo chart OUT.tiff\n"
                                "       kovis-demo sheet OUT.png FILE...\n";

void writeSheet(const std::string& path, const std::vector<std::string>& files)
{
    std::vector<kovis::demo::SheetEntry> entries;
    for (const std::string& file : files)
        entries.push_back({std::filesystem::path(file).filename().string(), kovis::tool::readPicture(file)});
    kovis::tool::writePicture(path, kovis::tool::viewOf(kovis::demo::makeContactSheet(entries)));
}
} // namespace

int main(int argc, char** argv)
{
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    try
    {
        if (arguments.size() == 2 && arguments[0] == "chart")
        {
            kovis::tool::writePicture(arguments[1], kovis::tool::viewOf(kovis::demo::makeTestChart()));
            return kovis::tool::eSuccess;
        }
        if (arguments.size() >= 3 && arguments[0] == "sheet")
        {
            writeSheet(arguments[1], std::vector<std::string>(arguments.begin() + 2, arguments.end()));
            return kovis::tool::eSuccess;
        }
    }
    catch (const std::exception& error)
    {
        std::fprintf(stderr, "kovis-demo: %s\n", error.what());
        return kovis::tool::eFailed;
    }
    std::fputs(g_usage, stderr);
    return kovis::tool::eMisused;
}
