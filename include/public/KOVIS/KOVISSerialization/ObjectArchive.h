#pragma once

#include "KOVIS/KOVISSerialization/BaseSerializationObject.h"
#include "KOVIS/KOVISSerialization/KOVISSerializationExport.h"
#include "KOVIS/KOVISUtil/ProcessingResult.h"

#include <boost/shared_ptr.hpp>

namespace kovis
{
/// Writes an object so that it can be read without knowing its class: a section "object" with the item "class", and within it
/// what the object's own write writes. False, with its message, if that gives false.
KOVISSERIALIZATION_EXPORT BoolResult writeObject(BaseOArchive& archive, const BaseSerializationObject& object);

/// Reads the next object that writeObject wrote: makes one of its class with DynamicObjectFactory, which knows the classes of the
/// libraries that are loaded, and calls its read. False, with its message, if that gives false. Throws
/// KOVISSerializationException, with section and key, for a class that the factory does not know or that archives do not keep,
/// and what the archive and the object's read throw. `object` is left as it is unless all went well.
KOVISSERIALIZATION_EXPORT BoolResult readObject(BaseIArchive& archive, boost::shared_ptr<BaseSerializationObject>& object);
} // namespace kovis
