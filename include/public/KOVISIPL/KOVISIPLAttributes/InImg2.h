#pragma once

#include "KOVIS/KOVISImageProcessing/BaseImageAttribute.h"
#include "KOVISIPL/KOVISIPLAttributes/DeclareAttribute.h"
#include "KOVISIPL/KOVISIPLAttributes/KOVISIPLAttributesExport.h"

namespace kovis::imaproc::attr
{
/// The second of two images that are read.
class KOVISIPLATTRIBUTES_EXPORT InImg2 : public BaseInputImageAttribute
{
    KOVIS_DECLARE_ATTRIBUTE(InImg2);
};
} // namespace kovis::imaproc::attr
