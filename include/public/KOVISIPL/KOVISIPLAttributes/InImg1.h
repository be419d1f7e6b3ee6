#pragma once

#include "KOVIS/KOVISImageProcessing/BaseImageAttribute.h"
#include "KOVISIPL/KOVISIPLAttributes/DeclareAttribute.h"
#include "KOVISIPL/KOVISIPLAttributes/KOVISIPLAttributesExport.h"

namespace kovis::imaproc::attr
{
/// The first of two images that are read.
class KOVISIPLATTRIBUTES_EXPORT InImg1 : public BaseInputImageAttribute
{
    KOVIS_DECLARE_ATTRIBUTE(InImg1);
};
} // namespace kovis::imaproc::attr
