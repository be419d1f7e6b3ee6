#include "KOVIS/KOVISSerialization/readArchiveEnumeration.h"

#include "KOVIS/KOVISSerialization/SerializationItem.h"

namespace kovis
{
int readArchiveEnumeration(BaseIArchive& archive, const std::string& key, int first, int last)
{
    int number = 0;
    archive >> SerializationIItem<int>{key, &number};
    if (number < first || number > last)
    {
        archive.refuseItem(key, std::to_string(number) + " is none of the numbers " + std::to_string(first) + " to " +
                                    std::to_string(last) + " that may stand there");
    }
    return number;
}
} // namespace kovis
