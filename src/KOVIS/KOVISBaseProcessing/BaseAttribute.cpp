#include "KOVIS/KOVISBaseProcessing/BaseAttribute.h"

namespace kovis::processor
{
BaseAttribute::BaseAttribute() = default;
BaseAttribute::~BaseAttribute() = default;

bool BaseAttribute::isArchivable() const
{
    return false;
}

void BaseAttribute::writeValue(BaseOArchive&) const {}

void BaseAttribute::readValue(BaseIArchive&) {}
} // namespace kovis::processor
