#include "KOVIS/KOVISBaseProcessing/archiveIsSet.h"

#include "KOVIS/KOVISSerialization/SerializationItem.h"

namespace kovis::processor
{
namespace
{
constexpr const char* g_setKey = "set";
}

bool writeIsSet(BaseOArchive& archive, bool bSet)
{
    archive << SerializationOItem<bool>{g_setKey, &bSet};
    return bSet;
}

bool readIsSet(BaseIArchive& archive)
{
    bool bSet = false;
    archive >> SerializationIItem<bool>{g_setKey, &bSet};
    return bSet;
}
} // namespace kovis::processor
