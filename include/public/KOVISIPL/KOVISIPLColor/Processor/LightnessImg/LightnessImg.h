#pragma once

#include "KOVIS/KOVISImage/BaseImage.h"
#include "KOVIS/KOVISUtil/BaseException.h"
#include "KOVISIPL/KOVISIPLAttributes/eLightnessType.h"
#include "KOVISIPL/KOVISIPLColor/KOVISIPLColorExport.h"
#include "KOVISIPL/KOVISIPLColor/Processor/LightnessImg/LightnessImgLvl1.h"

#include <boost/shared_ptr.hpp>

/// A grey image from a multi-channel one. The image may have any size, number of channels and colour space, and any of the buffer
/// types 1 to 11. The channels of a pixel give one value, in single-precision float: their mean (eLT_Average, the formula where
/// none is named), half the sum of the smallest and the largest (eLT_Lightness), or 0.21, 0.72 and 0.07 of the three that there
/// must be (eLT_Luminosity). Integer results are rounded half away from zero. Nothing is normalised.
///
/// A result that is made has the input's X, Y, Z, T and buffer type, in eCGT_Grey; one that is given must have them too, and one
/// channel.
///
/// The calls throw exceptions derived from kovis::BaseException: what a rule refuses, in its own words; the luminosity of other
/// than three channels, before anything is written; whatever fails inside. They may be called from any thread, many at once.
namespace kovis::imaproc::color
{
/// The mean of all channels, returned.
KOVISIPLCOLOR_EXPORT boost::shared_ptr<image::BaseImage> lightnessImg(const boost::shared_ptr<const image::BaseImage>& image);
/// By a formula, returned.
KOVISIPLCOLOR_EXPORT boost::shared_ptr<image::BaseImage> lightnessImg(const boost::shared_ptr<const image::BaseImage>& image,
                                                                      const attr::eLightnessType& type);
/// The mean of all channels, into the image `result`.
KOVISIPLCOLOR_EXPORT void lightnessImg(const boost::shared_ptr<const image::BaseImage>& image,
                                       const boost::shared_ptr<image::BaseImage>& result);
/// By a formula, into the image `result`.
KOVISIPLCOLOR_EXPORT void lightnessImg(const boost::shared_ptr<const image::BaseImage>& image, const attr::eLightnessType& type,
                                       const boost::shared_ptr<image::BaseImage>& result);

/// The same in the background: each starts the computation and returns its processor, by which the run is watched, waited for and
/// cancelled (see kovis::core::BaseAction). A failure of the run shows there, in getRunResult.
KOVISIPLCOLOR_EXPORT boost::shared_ptr<LightnessImgLvl1>
lightnessImg_async(const boost::shared_ptr<const image::BaseImage>& image);
KOVISIPLCOLOR_EXPORT boost::shared_ptr<LightnessImgLvl1>
lightnessImg_async(const boost::shared_ptr<const image::BaseImage>& image, const attr::eLightnessType& type);
KOVISIPLCOLOR_EXPORT boost::shared_ptr<LightnessImgLvl1>
lightnessImg_async(const boost::shared_ptr<const image::BaseImage>& image, const boost::shared_ptr<image::BaseImage>& result);
KOVISIPLCOLOR_EXPORT boost::shared_ptr<LightnessImgLvl1>
lightnessImg_async(const boost::shared_ptr<const image::BaseImage>& image, const attr::eLightnessType& type,
                   const boost::shared_ptr<image::BaseImage>& result);

/// What the output of a background computation holds now: it does not wait, and is an empty pointer for a run that has made none.
/// Throws KOVISBaseProcessingException for a processor that is not initialised.
KOVISIPLCOLOR_EXPORT boost::shared_ptr<image::BaseImage> getAsyncProcessorOutput(boost::shared_ptr<LightnessImgLvl1> processor);
} // namespace kovis::imaproc::color
