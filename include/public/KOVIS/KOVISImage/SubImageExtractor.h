#pragma once

#include "KOVIS/KOVISImage/BaseImage.h"
#include "KOVIS/KOVISImage/KOVISImageExport.h"
#include "KOVIS/KOVISUtil/ProcessingResult.h"

#include <boost/shared_ptr.hpp>

namespace kovis::image
{
/// Makes views: images that share the planes of another one and outlive it.
class KOVISIMAGE_EXPORT SubImageExtractor
{
public:
    /// A second image that shows the same planes with another colour geometry. False, with a message, for another size, number of
    /// planes or buffer type, and for a GPU image. TImage is BaseImage or const BaseImage.
    template <class TImage>
    static ProcessingResult<bool> reInterpretImageData(TImage& image, const BaseImageGeometry& geometry,
                                                       boost::shared_ptr<TImage>& view);

    /// All channels at one Z and T, as a 2D image.
    template <class TImage>
    static ProcessingResult<bool> extractSlice2d(TImage& image, unsigned long z, unsigned long t,
                                                 boost::shared_ptr<TImage>& view);

    /// One channel at one Z and T, as a 2D grey image.
    template <class TImage>
    static ProcessingResult<bool> extractPlane2d(TImage& image, unsigned long c, unsigned long z, unsigned long t,
                                                 boost::shared_ptr<TImage>& view);
};
} // namespace kovis::image
