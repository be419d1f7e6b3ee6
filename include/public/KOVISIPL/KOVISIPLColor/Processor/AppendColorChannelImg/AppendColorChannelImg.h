#pragma once

#include "KOVIS/KOVISImage/BaseImage.h"
#include "KOVIS/KOVISUtil/BaseException.h"
#include "KOVISIPL/KOVISIPLColor/KOVISIPLColorExport.h"
#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/AppendColorChannelImgLvl1.h"

#include <boost/shared_ptr.hpp>

/// One image with the channels of two: those of the first in their order, then those of the second. Both images must have the
/// same X, Y, Z and T and the same buffer type, of 1 to 11; their colour spaces are not looked at, and no value is changed.
///
/// A result that is made is in eCGT_User, whatever the inputs are: eCGT_Rgb and eCGT_Grey give four channels of eCGT_User, not
/// eCGT_Rgba. A result that is given must have as many channels as both inputs together, may be in any colour space, and keeps
/// it.
///
/// The calls throw exceptions derived from kovis::BaseException: what a rule refuses, and whatever fails inside. Where the
/// channels of a given result do not add up, the exception's text is "Exception thrown while processing message". They may be
/// called from any thread, many at once.
namespace kovis::imaproc::color
{
/// Returns the result.
KOVISIPLCOLOR_EXPORT boost::shared_ptr<image::BaseImage>
appendColorChannelImg(const boost::shared_ptr<const image::BaseImage>& first,
                      const boost::shared_ptr<const image::BaseImage>& second);
/// Writes into the image `result`.
KOVISIPLCOLOR_EXPORT void appendColorChannelImg(const boost::shared_ptr<const image::BaseImage>& first,
                                                const boost::shared_ptr<const image::BaseImage>& second,
                                                const boost::shared_ptr<image::BaseImage>& result);

/// The same in the background: each starts the run and returns its processor, by which it is watched, waited for and cancelled
/// (see kovis::core::BaseAction). A failure of the run shows there, in getRunResult.
KOVISIPLCOLOR_EXPORT boost::shared_ptr<AppendColorChannelImgLvl1>
appendColorChannelImg_async(const boost::shared_ptr<const image::BaseImage>& first,
                            const boost::shared_ptr<const image::BaseImage>& second);
KOVISIPLCOLOR_EXPORT boost::shared_ptr<AppendColorChannelImgLvl1>
appendColorChannelImg_async(const boost::shared_ptr<const image::BaseImage>& first,
                            const boost::shared_ptr<const image::BaseImage>& second,
                            const boost::shared_ptr<image::BaseImage>& result);

/// What the output of a background run holds now: it does not wait, and is an empty pointer for a run that has made none. Throws
/// KOVISBaseProcessingException for a processor that is not initialised.
KOVISIPLCOLOR_EXPORT boost::shared_ptr<image::BaseImage>
getAsyncProcessorOutput(boost::shared_ptr<AppendColorChannelImgLvl1> processor);
} // namespace kovis::imaproc::color
