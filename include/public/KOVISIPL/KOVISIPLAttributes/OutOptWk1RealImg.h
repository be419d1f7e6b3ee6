#pragma once

#include "KOVIS/KOVISImageProcessing/BaseImageAttribute.h"
#include "KOVISIPL/KOVISIPLAttributes/DeclareAttribute.h"
#include "KOVISIPL/KOVISIPLAttributes/KOVISIPLAttributesExport.h"

namespace kovis::imaproc::attr
{
/// A working image of float elements. A run needs none to be given.
class KOVISIPLATTRIBUTES_EXPORT OutOptWk1RealImg : public BaseOutputImageAttribute
{
    KOVIS_DECLARE_ATTRIBUTE(OutOptWk1RealImg);

    bool isMandatory() const override { return false; }
};
} // namespace kovis::imaproc::attr
