#pragma once

#include "KOVIS/KOVISImageProcessing/BaseImageAttribute.h"
#include "KOVISIPL/KOVISIPLAttributes/DeclareAttribute.h"
#include "KOVISIPL/KOVISIPLAttributes/KOVISIPLAttributesExport.h"

namespace kovis::imaproc::attr
{
/// A 2D part of a colour image, all channels together, that is written.
class KOVISIPLATTRIBUTES_EXPORT OutSubColorImg2d : public BaseOutputImageAttribute
{
    KOVIS_DECLARE_ATTRIBUTE(OutSubColorImg2d);
};
} // namespace kovis::imaproc::attr
