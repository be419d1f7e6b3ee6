#pragma once

#include "KOVIS/KOVISBaseProcessing/KOVISBaseProcessingExport.h"
#include "KOVIS/KOVISUtil/ProcessingResult.h"

namespace kovis::processor
{
/// Gives an output attribute its value when the caller has set none.
class KOVISBASEPROCESSING_EXPORT BaseOutputInitializer
{
public:
    virtual ~BaseOutputInitializer();
    BaseOutputInitializer(const BaseOutputInitializer&) = delete;
    BaseOutputInitializer& operator=(const BaseOutputInitializer&) = delete;

    /// Makes the value and puts it into the attribute. False, with a message, or an exception, if that cannot be done.
    virtual BoolResult initOutputAttribute() = 0;

protected:
    BaseOutputInitializer();
};
} // namespace kovis::processor
