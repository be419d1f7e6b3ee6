#pragma once

#include "KOVIS/KOVISUtil/KOVISUtilExport.h"

#include <boost/uuid/uuid.hpp>

#include <string>

namespace kovis
{
/// A globally unique identifier.
class KOVISUTIL_EXPORT Guid
{
public:
    /// The nil identifier.
    Guid();
    /// A new random identifier. Safe from any thread.
    static Guid create();

    bool isNil() const { return m_value.is_nil(); }
    std::string toString() const;
    bool operator==(const Guid& other) const { return m_value == other.m_value; }
    bool operator<(const Guid& other) const { return m_value < other.m_value; }

private:
    boost::uuids::uuid m_value;
};
} // namespace kovis
