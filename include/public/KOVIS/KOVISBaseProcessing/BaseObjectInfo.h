#pragma once

#include "KOVIS/KOVISBaseProcessing/KOVISBaseProcessingExport.h"

#include <string>

namespace kovis::processor
{
/// What an object is called and what it is for, as shown to people.
class KOVISBASEPROCESSING_EXPORT BaseObjectInfo
{
public:
    virtual ~BaseObjectInfo();

    virtual const std::string& getObjectName() const = 0;
    virtual const std::string& getToolTip() const = 0;

protected:
    BaseObjectInfo() = default;
};
} // namespace kovis::processor
