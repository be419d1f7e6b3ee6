#include "KOVIS/KOVISSerialization/ObjectArchive.h"

#include "KOVIS/KOVISSerialization/BaseArchive.h"
#include "KOVIS/KOVISSerialization/SerializationItem.h"
#include "KOVIS/KOVISSerialization/SerializationMessages.h"
#include "KOVIS/KOVISSerialization/quoteArchiveText.h"
#include "KOVIS/KOVISUtil/DynamicObjectFactory.h"

#include <boost/pointer_cast.hpp>

namespace kovis
{
namespace
{
constexpr const char* g_objectSection = "object";
constexpr const char* g_classKey = "class";
} // namespace

BoolResult writeObject(BaseOArchive& archive, const BaseSerializationObject& object)
{
    const ArchiveSectionManager section(archive, g_objectSection);
    archive << SerializationOItem<std::string>{g_classKey, &object.getClassName()};
    return object.write(archive);
}

BoolResult readObject(BaseIArchive& archive, boost::shared_ptr<BaseSerializationObject>& object)
{
    const SourcePlace place{"kovis::BoolResult kovis::readObject(kovis::BaseIArchive&, "
                            "boost::shared_ptr<kovis::BaseSerializationObject>&)",
                            "KOVIS/KOVISSerialization/ObjectArchive", __LINE__};
    const ArchiveSectionManager section(archive, g_objectSection);
    std::string className;
    archive >> SerializationIItem<std::string>{g_classKey, &className};
    const DynamicObjectFactory& factory = DynamicObjectFactory::getInstance();
    if (!factory.isRegistred(className))
    {
        throwSerializationMessage(eKOVISSerializationMessage::eSM_UnknownClass, place, archive.getPlace(g_classKey),
                                  quoteArchiveText(className));
    }
    const auto read = boost::dynamic_pointer_cast<BaseSerializationObject>(factory.createShared(className));
    if (!read)
    {
        throwSerializationMessage(eKOVISSerializationMessage::eSM_NotAnObject, place, archive.getPlace(g_classKey),
                                  quoteArchiveText(className));
    }
    BoolResult result = read->read(archive);
    if (result)
    {
        object = read;
    }
    return result;
}
} // namespace kovis
