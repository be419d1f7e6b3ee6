#pragma once

#include "KOVIS/KOVISImageProcessing/BaseImageAttribute.h"
#include "KOVISIPL/KOVISIPLAttributes/DeclareAttribute.h"
#include "KOVISIPL/KOVISIPLAttributes/KOVISIPLAttributesExport.h"

namespace kovis::imaproc::attr
{
/// A grey image that is written: the lightness of another one.
class KOVISIPLATTRIBUTES_EXPORT OutLightImg : public BaseOutputImageAttribute
{
    KOVIS_DECLARE_ATTRIBUTE(OutLightImg);
};
} // namespace kovis::imaproc::attr
