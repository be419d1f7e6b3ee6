#pragma once

#include "KOVIS/KOVISSerialization/KOVISSerializationExport.h"

#include <string>

namespace kovis
{
/// A text that an archive holds, for messages: in quotes, as one line of printable ASCII, cut after 100 bytes.
KOVISSERIALIZATION_EXPORT std::string quoteArchiveText(const std::string& text);
} // namespace kovis
