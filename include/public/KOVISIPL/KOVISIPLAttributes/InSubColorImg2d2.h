#pragma once

#include "KOVIS/KOVISImageProcessing/BaseImageAttribute.h"
#include "KOVISIPL/KOVISIPLAttributes/DeclareAttribute.h"
#include "KOVISIPL/KOVISIPLAttributes/KOVISIPLAttributesExport.h"

namespace kovis::imaproc::attr
{
/// A 2D part of the second of two colour images, all channels together, that is read.
class KOVISIPLATTRIBUTES_EXPORT InSubColorImg2d2 : public BaseInputImageAttribute
{
    KOVIS_DECLARE_ATTRIBUTE(InSubColorImg2d2);
};
} // namespace kovis::imaproc::attr
