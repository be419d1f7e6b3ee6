#pragma once

#include "KOVIS/KOVISSerialization/BaseArchive.h"

#include <string>
#include <vector>

namespace kovis
{
/// An item to write: a key and the address of its value.
template <class T>
struct SerializationOItem
{
    std::string m_key;
    const T* m_pValue;
};

/// An item to read: a key and the address of what takes its value.
template <class T>
struct SerializationIItem
{
    std::string m_key;
    T* m_pValue;
};

// The values of the kinds of ArchiveValue. Both throw KOVISSerializationException for an item without a value, and what the
// archive throws.
KOVISSERIALIZATION_EXPORT BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem<bool>& item);
KOVISSERIALIZATION_EXPORT BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem<int>& item);
KOVISSERIALIZATION_EXPORT BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem<unsigned int>& item);
KOVISSERIALIZATION_EXPORT BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem<long>& item);
KOVISSERIALIZATION_EXPORT BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem<unsigned long>& item);
KOVISSERIALIZATION_EXPORT BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem<float>& item);
KOVISSERIALIZATION_EXPORT BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem<double>& item);
KOVISSERIALIZATION_EXPORT BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem<std::string>& item);
KOVISSERIALIZATION_EXPORT BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem<std::vector<float>>& item);

KOVISSERIALIZATION_EXPORT BaseIArchive& operator>>(BaseIArchive& archive, const SerializationIItem<bool>& item);
KOVISSERIALIZATION_EXPORT BaseIArchive& operator>>(BaseIArchive& archive, const SerializationIItem<int>& item);
KOVISSERIALIZATION_EXPORT BaseIArchive& operator>>(BaseIArchive& archive, const SerializationIItem<unsigned int>& item);
KOVISSERIALIZATION_EXPORT BaseIArchive& operator>>(BaseIArchive& archive, const SerializationIItem<long>& item);
KOVISSERIALIZATION_EXPORT BaseIArchive& operator>>(BaseIArchive& archive, const SerializationIItem<unsigned long>& item);
KOVISSERIALIZATION_EXPORT BaseIArchive& operator>>(BaseIArchive& archive, const SerializationIItem<float>& item);
KOVISSERIALIZATION_EXPORT BaseIArchive& operator>>(BaseIArchive& archive, const SerializationIItem<double>& item);
KOVISSERIALIZATION_EXPORT BaseIArchive& operator>>(BaseIArchive& archive, const SerializationIItem<std::string>& item);
KOVISSERIALIZATION_EXPORT BaseIArchive& operator>>(BaseIArchive& archive, const SerializationIItem<std::vector<float>>& item);
} // namespace kovis
