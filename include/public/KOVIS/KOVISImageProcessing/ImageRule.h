#pragma once

#include "KOVIS/KOVISBaseProcessing/BaseRule.h"
#include "KOVIS/KOVISImageProcessing/BaseImageAttribute.h"
#include "KOVIS/KOVISImageProcessing/BaseStripAttribute.h"
#include "KOVIS/KOVISImageProcessing/KOVISImageProcessingExport.h"

#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>

namespace kovis::imaproc
{
/// Which sizes of two images must agree.
enum eMatchImageSizeType : int
{
    eMIST_All = 0,  ///< X, Y, Z, channels and T
    eMIST_XYZT = 5, ///< channels are left out
    eMIST_XY = 7
};

using ImageAttributeWeakPtr = boost::weak_ptr<const BaseImageAttribute>;
using StripAttributeWeakPtr = boost::weak_ptr<const BaseStripAttribute>;

/// The sizes of two images agree, channels too.
KOVISIMAGEPROCESSING_EXPORT boost::shared_ptr<processor::BaseRule> matchSize(const ImageAttributeWeakPtr& first,
                                                                             const ImageAttributeWeakPtr& second);
/// The sizes of two images agree in the dimensions that the kind names.
KOVISIMAGEPROCESSING_EXPORT boost::shared_ptr<processor::BaseRule>
matchSize(const eMatchImageSizeType& type, const ImageAttributeWeakPtr& first, const ImageAttributeWeakPtr& second);
/// X and Y of two images agree.
KOVISIMAGEPROCESSING_EXPORT boost::shared_ptr<processor::BaseRule> match2dSize(const ImageAttributeWeakPtr& first,
                                                                               const ImageAttributeWeakPtr& second);
/// The buffer types of two images are the same value: 2 does not match 8 or 11.
KOVISIMAGEPROCESSING_EXPORT boost::shared_ptr<processor::BaseRule> matchBufferType(const ImageAttributeWeakPtr& first,
                                                                                   const ImageAttributeWeakPtr& second);
/// X and Y of two strips agree.
KOVISIMAGEPROCESSING_EXPORT boost::shared_ptr<processor::BaseRule> matchPlanarSize(const StripAttributeWeakPtr& first,
                                                                                   const StripAttributeWeakPtr& second);
/// The buffer types of two strips are the same value.
KOVISIMAGEPROCESSING_EXPORT boost::shared_ptr<processor::BaseRule> matchBufferType(const StripAttributeWeakPtr& first,
                                                                                   const StripAttributeWeakPtr& second);
} // namespace kovis::imaproc
