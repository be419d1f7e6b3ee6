#pragma once

#include "KOVIS/KOVISImageProcessing/BaseImageAttribute.h"
#include "KOVISIPL/KOVISIPLAttributes/DeclareAttribute.h"
#include "KOVISIPL/KOVISIPLAttributes/KOVISIPLAttributesExport.h"

namespace kovis::imaproc::attr
{
/// The first of two images on a GPU that are read.
class KOVISIPLATTRIBUTES_EXPORT InSubGpuImg1 : public BaseInputImageAttribute
{
    KOVIS_DECLARE_ATTRIBUTE(InSubGpuImg1);
};
} // namespace kovis::imaproc::attr
