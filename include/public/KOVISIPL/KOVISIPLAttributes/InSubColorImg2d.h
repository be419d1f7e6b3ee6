#pragma once

#include "KOVIS/KOVISImageProcessing/BaseImageAttribute.h"
#include "KOVISIPL/KOVISIPLAttributes/DeclareAttribute.h"
#include "KOVISIPL/KOVISIPLAttributes/KOVISIPLAttributesExport.h"

namespace kovis::imaproc::attr
{
/// A 2D part of a colour image, all channels together, that is read.
class KOVISIPLATTRIBUTES_EXPORT InSubColorImg2d : public BaseInputImageAttribute
{
    KOVIS_DECLARE_ATTRIBUTE(InSubColorImg2d);
};
} // namespace kovis::imaproc::attr
