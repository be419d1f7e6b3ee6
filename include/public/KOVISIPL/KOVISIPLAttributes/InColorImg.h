#pragma once

#include "KOVIS/KOVISImageProcessing/BaseImageAttribute.h"
#include "KOVISIPL/KOVISIPLAttributes/DeclareAttribute.h"
#include "KOVISIPL/KOVISIPLAttributes/KOVISIPLAttributesExport.h"

namespace kovis::imaproc::attr
{
/// A colour image that is read.
class KOVISIPLATTRIBUTES_EXPORT InColorImg : public BaseInputImageAttribute
{
    KOVIS_DECLARE_ATTRIBUTE(InColorImg);
};
} // namespace kovis::imaproc::attr
