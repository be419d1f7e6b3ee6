#pragma once

#include "KOVIS/KOVISImageProcessing/BaseImageAttribute.h"
#include "KOVISIPL/KOVISIPLAttributes/DeclareAttribute.h"
#include "KOVISIPL/KOVISIPLAttributes/KOVISIPLAttributesExport.h"

namespace kovis::imaproc::attr
{
/// An image on a GPU that is written.
class KOVISIPLATTRIBUTES_EXPORT OutSubGpuImg : public BaseOutputImageAttribute
{
    KOVIS_DECLARE_ATTRIBUTE(OutSubGpuImg);
};
} // namespace kovis::imaproc::attr
