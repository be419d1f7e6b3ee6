#pragma once

#include "KOVIS/KOVISImage/BaseImage.h"
#include "KOVIS/KOVISImage/eColorGeometryType.h"
#include "KOVIS/KOVISUtil/BaseException.h"
#include "KOVISIPL/KOVISIPLAttributes/ColorConversionTransform.h"
#include "KOVISIPL/KOVISIPLColor/KOVISIPLColorExport.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImgLvl1.h"

#include <boost/shared_ptr.hpp>

/// Conversion of an image from its colour space to another. The image may have any size, any of the buffer types 1 to 11 and any
/// of the eleven colour spaces. Nothing is normalised: samples enter the formulas as the numbers that they hold, on a scale of 0
/// to 255 where the sRGB curve is part of the way.
///
/// A result that is made has the input's size; its elements are those of the input for eCGT_YCbCr and between eCGT_Rgb and
/// eCGT_Rgba, otherwise float. A result that is given must have the input's X, Y, Z and T and the target's space; its elements
/// may be of any type: fractions are rounded half away from zero and saturate, except that the same space on both sides
/// truncates. For eCGT_User the transform brings a matrix, of as many rows as the result has channels. Input and result may be
/// the same image.
///
/// The calls throw exceptions derived from kovis::BaseException: what a rule refuses, in its own words; samples outside 0 to 255
/// on the way from eCGT_Rgb to eCGT_CieLab or eCGT_XYZ; whatever fails inside. They may be called from any thread, many at once.
namespace kovis::imaproc::color
{
/// Converts to a space, and returns the result.
KOVISIPLCOLOR_EXPORT boost::shared_ptr<image::BaseImage> colorConvertImg(const boost::shared_ptr<const image::BaseImage>& image,
                                                                         const image::eColorGeometryType& target);
/// Converts by a transform, and returns the result.
KOVISIPLCOLOR_EXPORT boost::shared_ptr<image::BaseImage>
colorConvertImg(const boost::shared_ptr<const image::BaseImage>& image,
                const boost::shared_ptr<const attr::ColorConversionTransform>& transform);
/// Converts to a space, into the image `result`.
KOVISIPLCOLOR_EXPORT void colorConvertImg(const boost::shared_ptr<const image::BaseImage>& image,
                                          const image::eColorGeometryType& target,
                                          const boost::shared_ptr<image::BaseImage>& result);
/// Converts by a transform, into the image `result`.
KOVISIPLCOLOR_EXPORT void colorConvertImg(const boost::shared_ptr<const image::BaseImage>& image,
                                          const boost::shared_ptr<const attr::ColorConversionTransform>& transform,
                                          const boost::shared_ptr<image::BaseImage>& result);

/// The same in the background: each starts the conversion and returns its processor, by which the run is watched, waited for and
/// cancelled (see kovis::core::BaseAction). A failure of the run shows there, in getRunResult.
KOVISIPLCOLOR_EXPORT boost::shared_ptr<ColorConvertImgLvl1>
colorConvertImg_async(const boost::shared_ptr<const image::BaseImage>& image, const image::eColorGeometryType& target);
KOVISIPLCOLOR_EXPORT boost::shared_ptr<ColorConvertImgLvl1>
colorConvertImg_async(const boost::shared_ptr<const image::BaseImage>& image,
                      const boost::shared_ptr<const attr::ColorConversionTransform>& transform);
KOVISIPLCOLOR_EXPORT boost::shared_ptr<ColorConvertImgLvl1>
colorConvertImg_async(const boost::shared_ptr<const image::BaseImage>& image, const image::eColorGeometryType& target,
                      const boost::shared_ptr<image::BaseImage>& result);
KOVISIPLCOLOR_EXPORT boost::shared_ptr<ColorConvertImgLvl1>
colorConvertImg_async(const boost::shared_ptr<const image::BaseImage>& image,
                      const boost::shared_ptr<const attr::ColorConversionTransform>& transform,
                      const boost::shared_ptr<image::BaseImage>& result);

/// What the output of a background conversion holds now: it does not wait, and is an empty pointer for a run that has made none.
/// Throws KOVISBaseProcessingException for a processor that is not initialised.
KOVISIPLCOLOR_EXPORT boost::shared_ptr<image::BaseImage>
getAsyncProcessorOutput(boost::shared_ptr<ColorConvertImgLvl1> processor);
} // namespace kovis::imaproc::color
