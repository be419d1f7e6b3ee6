#pragma once

#include "KOVIS/KOVISSerialization/BaseArchive.h"

#include <string>

namespace kovis
{
/// Reads the number of an enumerator, one of `first` to `last`, from the open section. Any other one throws
/// KOVISSerializationException with section, key and what may stand there, as does what the archive itself refuses.
KOVISSERIALIZATION_EXPORT int readArchiveEnumeration(BaseIArchive& archive, const std::string& key, int first, int last);
} // namespace kovis
