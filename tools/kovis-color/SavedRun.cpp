#include "SavedRun.h"

#include "ColourSpace.h"
#include "InputFile.h"
#include "Numbers.h"
#include "OutputFile.h"
#include "ToolError.h"

#include "KOVIS/KOVISSerialization/JsonIArchive.h"
#include "KOVIS/KOVISSerialization/JsonOArchive.h"
#include "KOVIS/KOVISSerialization/KOVISSerializationLog.h"
#include "KOVIS/KOVISSerialization/ObjectArchive.h"
#include "KOVIS/KOVISSerialization/SerializationItem.h"

#include <boost/pointer_cast.hpp>

#include <cerrno>
#include <fstream>
#include <sstream>
#include <unistd.h>

namespace kovis::tool
{
namespace
{
/// The section of the program's own, behind the processor.
constexpr const char* g_section = "kovis-color";
constexpr const char* g_fromKey = "from";
constexpr const char* g_typeKey = "type";

void writeText(const std::string& path, const std::string& text)
{
    OutputFile file(path);
    for (std::size_t nbWritten = 0; nbWritten < text.size();)
    {
        const ssize_t nbBytes = ::write(file.getDescriptor(), text.data() + nbWritten, text.size() - nbWritten);
        if (nbBytes < 0 && errno == EINTR)
            continue;
        if (nbBytes < 0)
            throw ToolError(path, "cannot be written (" + getSystemErrorText(errno) + ")", "see that the disk has room");
        nbWritten += static_cast<std::size_t>(nbBytes);
    }
    file.commit();
}

/// Reads what the program wrote of itself; an archive that the library wrote has nothing of it.
void readOwnSection(const std::string& path, JsonIArchive& archive, SavedRun& saved)
{
    if (!archive.hasNextSection())
        return;
    const ArchiveSectionManager section(archive, g_section);
    archive >> SerializationIItem<std::string>{g_fromKey, &saved.from} >> SerializationIItem<std::string>{g_typeKey, &saved.type};
    try
    {
        if (!saved.from.empty())
            parseSpace("section \"kovis-color\", key \"from\"", saved.from);
        if (!saved.type.empty())
            parseType("section \"kovis-color\", key \"type\"", saved.type);
    }
    catch (const ToolError& error)
    {
        throw ToolError(path, error.what(), ""); // a wrong file is no wrong use of the program
    }
}
} // namespace

void writeSavedRun(const std::string& path, const SavedRun& saved)
{
    std::ostringstream text;
    JsonOArchive archive(text);
    const BoolResult result = writeObject(archive, *saved.processor);
    if (!result)
        throw ToolError(path, result.getMessage(), "");
    {
        const ArchiveSectionManager section(archive, g_section);
        archive << SerializationOItem<std::string>{g_fromKey, &saved.from}
                << SerializationOItem<std::string>{g_typeKey, &saved.type};
    }
    archive.finish();
    writeText(path, text.str());
}

SavedRun readSavedRun(const std::string& path)
{
    const InputFile probe(path, ReadLimits()); // tells in words what stands in the way of reading
    std::ifstream stream(path, std::ios::binary);
    SavedRun saved;
    try
    {
        JsonIArchive archive(stream);
        boost::shared_ptr<BaseSerializationObject> object;
        const BoolResult result = readObject(archive, object);
        if (!result)
            throw ToolError(path, result.getMessage(), "");
        saved.processor = boost::dynamic_pointer_cast<processor::BaseProcessor>(object);
        if (!saved.processor)
            throw ToolError(path, "holds a " + object->getClassName() + ", which cannot be run",
                            "give a file that kovis-color wrote by --save");
        readOwnSection(path, archive, saved);
    }
    catch (const KOVISSerializationException& error)
    {
        throw ToolError(path, error.what(), "give a file that kovis-color wrote by --save");
    }
    return saved;
}
} // namespace kovis::tool
