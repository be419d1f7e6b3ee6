#pragma once

#include "KOVIS/KOVISImageProcessing/BaseImageAttribute.h"
#include "KOVISIPL/KOVISIPLAttributes/DeclareAttribute.h"
#include "KOVISIPL/KOVISIPLAttributes/KOVISIPLAttributesExport.h"

namespace kovis::imaproc::attr
{
/// An image that is read.
class KOVISIPLATTRIBUTES_EXPORT InImg : public BaseInputImageAttribute
{
    KOVIS_DECLARE_ATTRIBUTE(InImg);
};
} // namespace kovis::imaproc::attr
