#include "KOVIS/KOVISSerialization/SerializationItem.h"

#include "KOVIS/KOVISSerialization/KOVISSerializationLog.h"
#include "KOVIS/KOVISUtil/ThrowMessage.h"

namespace kovis
{
namespace
{
void checkValue(const void* value, const std::string& key, const SourcePlace& place)
{
    if (value == nullptr)
    {
        throwMessage<KOVISSerializationException>(getKOVISSerializationLogMessageManager(), getKOVISSerializationLogger(),
                                                  eKOVISSerializationMessage::eSM_NoValue, place, key);
    }
}
} // namespace

BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem<unsigned int>& item)
{
    checkValue(item.m_pValue, item.m_key,
               SourcePlace{
                   "kovis::BaseOArchive& kovis::operator<<(kovis::BaseOArchive&, const kovis::SerializationOItem<unsigned int>&)",
                   "KOVIS/KOVISSerialization/SerializationItem.cpp", __LINE__});
    archive.writeItem(item.m_key, *item.m_pValue);
    return archive;
}

BaseIArchive& operator>>(BaseIArchive& archive, const SerializationIItem<unsigned int>& item)
{
    checkValue(item.m_pValue, item.m_key,
               SourcePlace{
                   "kovis::BaseIArchive& kovis::operator>>(kovis::BaseIArchive&, const kovis::SerializationIItem<unsigned int>&)",
                   "KOVIS/KOVISSerialization/SerializationItem.cpp", __LINE__});
    archive.readItem(item.m_key, *item.m_pValue);
    return archive;
}
} // namespace kovis
