#pragma once

#include "KOVIS/KOVISCore/KOVISCoreExport.h"

namespace kovis::core
{
/// How urgent an action is. Greater is more urgent; pieces take the priority of the action that they are a part of.
class KOVISCORE_EXPORT BasePriority
{
public:
    BasePriority() = default;
    explicit BasePriority(int value) : m_value(value) {}

    int getValue() const { return m_value; }
    bool operator==(const BasePriority&) const = default;

private:
    int m_value = 0;
};
} // namespace kovis::core
