#include "KOVIS/KOVISSerialization/SerializationItem.h"

#include "KOVIS/KOVISSerialization/SerializationMessages.h"

#include <utility>

namespace kovis
{
namespace
{
void checkValue(const void* value, const std::string& key, const SourcePlace& place)
{
    if (value == nullptr)
    {
        throwSerializationMessage(eKOVISSerializationMessage::eSM_NoValue, place, key);
    }
}

template <class T>
BaseOArchive& writeValue(BaseOArchive& archive, const SerializationOItem<T>& item)
{
    checkValue(item.m_pValue, item.m_key,
               SourcePlace{"kovis::BaseOArchive& kovis::operator<<(kovis::BaseOArchive&, const kovis::SerializationOItem<T>&)",
                           "KOVIS/KOVISSerialization/SerializationItem", __LINE__});
    archive.writeItem(item.m_key, ArchiveValue(*item.m_pValue));
    return archive;
}

template <class T>
BaseIArchive& readValue(BaseIArchive& archive, const SerializationIItem<T>& item)
{
    checkValue(item.m_pValue, item.m_key,
               SourcePlace{"kovis::BaseIArchive& kovis::operator>>(kovis::BaseIArchive&, const kovis::SerializationIItem<T>&)",
                           "KOVIS/KOVISSerialization/SerializationItem", __LINE__});
    ArchiveValue value{T()};
    archive.readItem(item.m_key, value);
    *item.m_pValue = std::get<T>(std::move(value));
    return archive;
}
} // namespace

BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem<bool>& item)
{
    return writeValue(archive, item);
}
BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem<int>& item)
{
    return writeValue(archive, item);
}
BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem<unsigned int>& item)
{
    return writeValue(archive, item);
}
BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem<long>& item)
{
    return writeValue(archive, item);
}
BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem<unsigned long>& item)
{
    return writeValue(archive, item);
}
BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem<float>& item)
{
    return writeValue(archive, item);
}
BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem<double>& item)
{
    return writeValue(archive, item);
}
BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem<std::string>& item)
{
    return writeValue(archive, item);
}
BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem<std::vector<float>>& item)
{
    return writeValue(archive, item);
}

BaseIArchive& operator>>(BaseIArchive& archive, const SerializationIItem<bool>& item)
{
    return readValue(archive, item);
}
BaseIArchive& operator>>(BaseIArchive& archive, const SerializationIItem<int>& item)
{
    return readValue(archive, item);
}
BaseIArchive& operator>>(BaseIArchive& archive, const SerializationIItem<unsigned int>& item)
{
    return readValue(archive, item);
}
BaseIArchive& operator>>(BaseIArchive& archive, const SerializationIItem<long>& item)
{
    return readValue(archive, item);
}
BaseIArchive& operator>>(BaseIArchive& archive, const SerializationIItem<unsigned long>& item)
{
    return readValue(archive, item);
}
BaseIArchive& operator>>(BaseIArchive& archive, const SerializationIItem<float>& item)
{
    return readValue(archive, item);
}
BaseIArchive& operator>>(BaseIArchive& archive, const SerializationIItem<double>& item)
{
    return readValue(archive, item);
}
BaseIArchive& operator>>(BaseIArchive& archive, const SerializationIItem<std::string>& item)
{
    return readValue(archive, item);
}
BaseIArchive& operator>>(BaseIArchive& archive, const SerializationIItem<std::vector<float>>& item)
{
    return readValue(archive, item);
}
} // namespace kovis
