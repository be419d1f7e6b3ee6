#pragma once

#include "KOVIS/KOVISImageProcessing/BaseStripAttribute.h"
#include "KOVISIPL/KOVISIPLAttributes/DeclareAttribute.h"
#include "KOVISIPL/KOVISIPLAttributes/KOVISIPLAttributesExport.h"

namespace kovis::imaproc::attr
{
/// A Y strip of a colour image that is read.
class KOVISIPLATTRIBUTES_EXPORT InColorYStrip2d : public BaseInputYStripColor2dAttribute
{
    KOVIS_DECLARE_ATTRIBUTE(InColorYStrip2d);
};
} // namespace kovis::imaproc::attr
