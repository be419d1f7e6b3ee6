#pragma once

#include "KOVIS/KOVISBaseProcessing/KOVISBaseProcessingExport.h"

namespace kovis
{
class BaseOArchive;
class BaseIArchive;
} // namespace kovis

namespace kovis::processor
{
/// Writes whether an attribute has a value: the item "set" that its section begins with. Returns `bSet`.
KOVISBASEPROCESSING_EXPORT bool writeIsSet(BaseOArchive& archive, bool bSet);
/// Reads it back.
KOVISBASEPROCESSING_EXPORT bool readIsSet(BaseIArchive& archive);
} // namespace kovis::processor
