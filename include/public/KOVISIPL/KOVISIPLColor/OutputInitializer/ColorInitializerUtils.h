#pragma once

#include "KOVIS/KOVISImageProcessing/BaseImageAttribute.h"
#include "KOVIS/KOVISImageProcessing/OutputInitializer.h"
#include "KOVISIPL/KOVISIPLAttributes/InColorConversionTransform.h"
#include "KOVISIPL/KOVISIPLColor/KOVISIPLColorExport.h"

#include <boost/shared_ptr.hpp>

namespace kovis::imaproc::color
{
/// Describes the result of a conversion that was given none: of the input's size, in the transform's target space. Its elements
/// are those of the input between eCGT_Rgb and eCGT_Rgba and for eCGT_YCbCr, otherwise float. For eCGT_User it has as many
/// channels as the matrix has whole rows. No attribute is kept alive; asking throws KOVISIPLColorException when the transform
/// attribute is gone.
KOVISIPLCOLOR_EXPORT boost::shared_ptr<BaseCustomImageInfo>
outputTargetColorSpace(const boost::shared_ptr<const BaseImageAttribute>& input,
                       const boost::shared_ptr<const attr::InColorConversionTransform>& transform);

/// Describes the result of an append that was given none: of the first input's size and buffer type, in eCGT_User with as many
/// channels as both inputs together. No attribute is kept alive; asking for the channels throws KOVISIPLColorException when the
/// second input's attribute is gone.
KOVISIPLCOLOR_EXPORT boost::shared_ptr<BaseCustomImageInfo>
outputAppendColor(const boost::shared_ptr<const BaseImageAttribute>& input1,
                  const boost::shared_ptr<const BaseImageAttribute>& input2);
} // namespace kovis::imaproc::color
