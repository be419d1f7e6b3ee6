#include "KOVIS/KOVISUtil/Guid.h"

#include <boost/uuid/nil_generator.hpp>
#include <boost/uuid/random_generator.hpp>
#include <boost/uuid/uuid_io.hpp>

namespace kovis
{
Guid::Guid() : m_value(boost::uuids::nil_uuid()) {}

Guid Guid::create()
{
    Guid guid;
    guid.m_value = boost::uuids::random_generator()();
    return guid;
}

std::string Guid::toString() const
{
    return boost::uuids::to_string(m_value);
}
} // namespace kovis
