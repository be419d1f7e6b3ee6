#pragma once

#include "KOVIS/KOVISImageProcessing/BaseStripAttribute.h"
#include "KOVISIPL/KOVISIPLAttributes/DeclareAttribute.h"
#include "KOVISIPL/KOVISIPLAttributes/KOVISIPLAttributesExport.h"

namespace kovis::imaproc::attr
{
/// A Y strip of the second of two colour images, that is read.
class KOVISIPLATTRIBUTES_EXPORT InColorYStrip2 : public BaseInputYStripColor2dAttribute
{
    KOVIS_DECLARE_ATTRIBUTE(InColorYStrip2);
};
} // namespace kovis::imaproc::attr
