#include "fuzz/readArchive.h"

#include "KOVIS/KOVISSerialization/JsonIArchive.h"
#include "KOVIS/KOVISSerialization/JsonOArchive.h"
#include "KOVIS/KOVISSerialization/KOVISSerializationLog.h"
#include "KOVIS/KOVISSerialization/ObjectArchive.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImgLvl1.h"

#include <cstdlib>
#include <sstream>
#include <string>

namespace kovis::test
{
namespace
{
bool hasPlace(const std::string& message)
{
    return message.find("section \"") != std::string::npos || message.find("the outermost level") != std::string::npos ||
           message.find("newer than version") != std::string::npos;
}

/// What has been read can be written, and is read again.
void writeAgain(const BaseSerializationObject& object)
{
    std::stringstream stream;
    JsonOArchive archive(stream);
    if (!writeObject(archive, object))
    {
        std::abort();
    }
    archive.finish();
    JsonIArchive again(stream);
    boost::shared_ptr<BaseSerializationObject> read;
    if (!readObject(again, read) || read->getClassName() != object.getClassName())
    {
        std::abort();
    }
}
} // namespace

void readArchive(const std::uint8_t* data, std::size_t size)
{
    imaproc::color::ColorConvertImgLvl1::getVersion(); // needs the module, which enters its classes
    std::istringstream stream(std::string(reinterpret_cast<const char*>(data), size));
    try
    {
        JsonIArchive archive(stream);
        while (archive.hasNextSection())
        {
            boost::shared_ptr<BaseSerializationObject> object;
            if (!readObject(archive, object))
            {
                std::abort();
            }
            writeAgain(*object);
        }
    }
    catch (const KOVISSerializationException& e)
    {
        if (!hasPlace(e.getMessage()))
        {
            std::abort();
        }
    }
}
} // namespace kovis::test
