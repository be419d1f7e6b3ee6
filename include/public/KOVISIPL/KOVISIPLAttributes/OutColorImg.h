#pragma once

#include "KOVIS/KOVISImageProcessing/BaseImageAttribute.h"
#include "KOVISIPL/KOVISIPLAttributes/DeclareAttribute.h"
#include "KOVISIPL/KOVISIPLAttributes/KOVISIPLAttributesExport.h"

namespace kovis::imaproc::attr
{
/// A colour image that is written.
class KOVISIPLATTRIBUTES_EXPORT OutColorImg : public BaseOutputImageAttribute
{
    KOVIS_DECLARE_ATTRIBUTE(OutColorImg);
};
} // namespace kovis::imaproc::attr
