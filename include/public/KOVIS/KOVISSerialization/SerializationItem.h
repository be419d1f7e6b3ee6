#pragma once

#include "KOVIS/KOVISSerialization/BaseArchive.h"

#include <string>

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

KOVISSERIALIZATION_EXPORT BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem<unsigned int>& item);
KOVISSERIALIZATION_EXPORT BaseIArchive& operator>>(BaseIArchive& archive, const SerializationIItem<unsigned int>& item);
} // namespace kovis
