#pragma once

#include "KOVIS/KOVISSerialization/KOVISSerializationExport.h"
#include "KOVIS/KOVISUtil/BaseDynamicObject.h"
#include "KOVIS/KOVISUtil/ProcessingResult.h"

namespace kovis
{
class BaseOArchive;
class BaseIArchive;

/// A dynamic object that can be written to an archive and read back.
class KOVISSERIALIZATION_EXPORT BaseSerializationObject : public BaseDynamicObject
{
public:
    ~BaseSerializationObject() override;

    virtual BoolResult write(BaseOArchive& archive) const = 0;
    virtual BoolResult read(BaseIArchive& archive) = 0;

protected:
    BaseSerializationObject() = default;
    BaseSerializationObject(const BaseSerializationObject&) = default;
    BaseSerializationObject& operator=(const BaseSerializationObject&) = default;
};
} // namespace kovis
