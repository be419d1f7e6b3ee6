#include "KOVIS/KOVISSerialization/BaseSerializationObject.h"

namespace kovis
{
BaseSerializationObject::~BaseSerializationObject() = default;
} // namespace kovis
