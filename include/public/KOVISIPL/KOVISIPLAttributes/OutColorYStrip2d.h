#pragma once

#include "KOVIS/KOVISImageProcessing/BaseStripAttribute.h"
#include "KOVISIPL/KOVISIPLAttributes/DeclareAttribute.h"
#include "KOVISIPL/KOVISIPLAttributes/KOVISIPLAttributesExport.h"

namespace kovis::imaproc::attr
{
/// A Y strip of a colour image that is written.
class KOVISIPLATTRIBUTES_EXPORT OutColorYStrip2d : public BaseOutputYStripColor2dAttribute
{
    KOVIS_DECLARE_ATTRIBUTE(OutColorYStrip2d);
};
} // namespace kovis::imaproc::attr
