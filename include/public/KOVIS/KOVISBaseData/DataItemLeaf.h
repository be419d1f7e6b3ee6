#pragma once

#include "KOVIS/KOVISSerialization/SerializationItem.h"

#include <string>
#include <utility>

namespace kovis
{
/// One value of a data item, with its name.
template <class T>
class DataItemLeaf
{
public:
    explicit DataItemLeaf(std::string name, T value = T()) : m_name(std::move(name)), m_value(std::move(value)) {}

    const std::string& getName() const { return m_name; }
    const T& getValue() const { return m_value; }
    T& accessValue() { return m_value; }
    void setValue(T value) { m_value = std::move(value); }

private:
    std::string m_name;
    T m_value;
};

template <class T>
BaseOArchive& operator<<(BaseOArchive& archive, const DataItemLeaf<T>& leaf)
{
    return archive << SerializationOItem<T>{leaf.getName(), &leaf.getValue()};
}

template <class T>
BaseIArchive& operator>>(BaseIArchive& archive, DataItemLeaf<T>& leaf)
{
    return archive >> SerializationIItem<T>{leaf.getName(), &leaf.accessValue()};
}
} // namespace kovis
