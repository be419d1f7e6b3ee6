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
#include "KOVIS/KOVISSerialization/quoteArchiveText.h"

#include <boost/pointer_cast.hpp>

#include <cerrno>
#include <cstdint>
#include <ios>
#include <istream>
#include <sstream>
#include <streambuf>
#include <unistd.h>

namespace kovis::tool
{
namespace
{
/// The section of the program's own, behind the processor.
constexpr const char* g_section = "kovis-color";
constexpr const char* g_fromKey = "from";
constexpr const char* g_typeKey = "type";

constexpr const char* g_whatToGive = "give a file that kovis-color wrote by --save";

/// The characters of an open file.
class FileBuffer : public std::streambuf
{
public:
    explicit FileBuffer(const InputFile& file) : m_file(file) {}

protected:
    int_type underflow() override
    {
        const std::int64_t nbRead = m_file.read(m_bytes, sizeof m_bytes);
        if (nbRead < 0)
            throw std::ios_base::failure("the file cannot be read");
        setg(m_bytes, m_bytes, m_bytes + nbRead);
        return nbRead == 0 ? traits_type::eof() : traits_type::to_int_type(m_bytes[0]);
    }

private:
    const InputFile& m_file;
    char m_bytes[4096];
};

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
    const InputFile file(path, ReadLimits(), g_whatToGive);
    FileBuffer buffer(file);
    std::istream stream(&buffer);
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
            throw ToolError(path, "holds a " + object->getClassName() + ", which cannot be run", g_whatToGive);
        readOwnSection(path, archive, saved);
        if (archive.hasNextSection())
            throw ToolError(path, "holds more than one processor: section " + quoteArchiveText(archive.getNextSectionName()),
                            g_whatToGive);
    }
    catch (const KOVISSerializationException& error)
    {
        throw ToolError(path, error.what(), g_whatToGive);
    }
    return saved;
}
} // namespace kovis::tool
