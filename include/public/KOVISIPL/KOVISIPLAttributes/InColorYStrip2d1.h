#pragma once

#include "KOVIS/KOVISImageProcessing/BaseStripAttribute.h"
#include "KOVISIPL/KOVISIPLAttributes/DeclareAttribute.h"
#include "KOVISIPL/KOVISIPLAttributes/KOVISIPLAttributesExport.h"

namespace kovis::imaproc::attr
{
/// A Y strip of the first of two colour images, that is read.
class KOVISIPLATTRIBUTES_EXPORT InColorYStrip2d1 : public BaseInputYStripColor2dAttribute
{
    KOVIS_DECLARE_ATTRIBUTE(InColorYStrip2d1);
};
} // namespace kovis::imaproc::attr
