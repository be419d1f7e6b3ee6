#pragma once

#include "KOVIS/KOVISImageProcessing/BaseImageAttribute.h"
#include "KOVISIPL/KOVISIPLAttributes/DeclareAttribute.h"
#include "KOVISIPL/KOVISIPLAttributes/KOVISIPLAttributesExport.h"

namespace kovis::imaproc::attr
{
/// A 2D part of the first of two colour images, all channels together, that is read.
class KOVISIPLATTRIBUTES_EXPORT InSubColorImg2d1 : public BaseInputImageAttribute
{
    KOVIS_DECLARE_ATTRIBUTE(InSubColorImg2d1);
};
} // namespace kovis::imaproc::attr
