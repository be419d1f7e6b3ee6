#pragma once

#include "KOVIS/KOVISImageProcessing/BaseStripAttribute.h"
#include "KOVISIPL/KOVISIPLAttributes/DeclareAttribute.h"
#include "KOVISIPL/KOVISIPLAttributes/KOVISIPLAttributesExport.h"

namespace kovis::imaproc::attr
{
/// A Y strip of a one-channel image that is written: the lightness of another one.
class KOVISIPLATTRIBUTES_EXPORT OutLightYStrip2d : public BaseOutputYStrip2dAttribute
{
    KOVIS_DECLARE_ATTRIBUTE(OutLightYStrip2d);
};
} // namespace kovis::imaproc::attr
