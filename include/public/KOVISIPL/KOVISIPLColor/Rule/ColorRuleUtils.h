#pragma once

#include "KOVIS/KOVISBaseProcessing/BaseRule.h"
#include "KOVIS/KOVISImageProcessing/BaseImageAttribute.h"
#include "KOVIS/KOVISImageProcessing/BaseStripAttribute.h"
#include "KOVISIPL/KOVISIPLAttributes/InColorConversionTransform.h"
#include "KOVISIPL/KOVISIPLColor/KOVISIPLColorExport.h"

#include <boost/shared_ptr.hpp>

namespace kovis::imaproc::color
{
/// Holds if the output is in the transform's target space and, for the target eCGT_User, if the matrix has exactly as many values
/// as the channels of both sides ask for: output channels times input channels plus one. The space of the input is not looked at,
/// nor is the matrix of another target. No attribute is kept alive; a test throws KOVISIPLColorException when the transform
/// attribute is gone.
KOVISIPLCOLOR_EXPORT boost::shared_ptr<processor::BaseRule>
matchColorSpace(const boost::shared_ptr<const BaseImageAttribute>& input,
                const boost::shared_ptr<const BaseImageAttribute>& output,
                const boost::shared_ptr<const attr::InColorConversionTransform>& transform);
/// The same for strips.
KOVISIPLCOLOR_EXPORT boost::shared_ptr<processor::BaseRule>
matchColorSpace(const boost::shared_ptr<const BaseYStripColor2dAttribute>& input,
                const boost::shared_ptr<const BaseYStripColor2dAttribute>& output,
                const boost::shared_ptr<const attr::InColorConversionTransform>& transform);

/// Holds if the output has as many channels as both inputs together; the colour spaces are not looked at. No attribute is kept
/// alive; a test or a text throws KOVISIPLColorException when the second input's attribute is gone, KOVISBaseProcessingException
/// when the first input's or the output's is. The evaluated text has more places than it is given strings: asking for it throws a
/// BaseException whose cause is that.
KOVISIPLCOLOR_EXPORT boost::shared_ptr<processor::BaseRule>
matchAppendChannel(const boost::shared_ptr<const BaseImageAttribute>& input1,
                   const boost::shared_ptr<const BaseImageAttribute>& input2,
                   const boost::shared_ptr<const BaseImageAttribute>& output);
} // namespace kovis::imaproc::color
