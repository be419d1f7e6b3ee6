#pragma once

#include "KOVIS/KOVISImageProcessing/BaseImageAttribute.h"
#include "KOVISIPL/KOVISIPLAttributes/DeclareAttribute.h"
#include "KOVISIPL/KOVISIPLAttributes/KOVISIPLAttributesExport.h"

namespace kovis::imaproc::attr
{
/// An image that is written.
class KOVISIPLATTRIBUTES_EXPORT OutImg : public BaseOutputImageAttribute
{
    KOVIS_DECLARE_ATTRIBUTE(OutImg);
};
} // namespace kovis::imaproc::attr
