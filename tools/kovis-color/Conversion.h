#pragma once

#include "Picture.h"

#include "KOVIS/KOVISCore/BaseAction.h"
#include "KOVIS/KOVISImage/BaseImage.h"
#include "KOVIS/KOVISImage/eColorGeometryType.h"

#include <boost/shared_ptr.hpp>

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace kovis::imaproc::color
{
class ColorConvertImgLvl1;
}

namespace kovis::tool
{
/// What to make of a picture.
struct Conversion
{
    image::eColorGeometryType from = image::eCGT_Rgb;
    image::eColorGeometryType to = image::eCGT_Rgb;
    std::vector<float> matrix;             ///< where one end is eCGT_User
    std::optional<ElementType> resultType; ///< nothing: what the library chooses
};

/// Hears of the progress, from 0 to 1, every so often on the calling thread.
using ProgressListener = std::function<void(double)>;

/// Channels of the result; for a user target as the matrix says.
std::size_t getResultChannels(const Conversion& conversion, std::size_t inputChannels);

/// Waits for a background run and rethrows what it failed with. The run stands for the part of the progress from `begin` to
/// `end`.
void follow(const core::BaseAction& action, const ProgressListener& listener, double begin, double end);

/// Throws ToolError (misused) for a picture that has other than the channels of its space. `subject` is the file's name.
void checkChannels(const std::string& subject, image::eColorGeometryType space, std::size_t channels);

/// Throws ToolError for spaces, channel count and matrix that do not go together. `subject` is the picture's name. The program
/// was misused, unless the matrix comes from the file `savedFile`: then that file is wrong.
void checkConversion(const std::string& subject, const Conversion& conversion, std::size_t inputChannels,
                     const std::string& savedFile = std::string());

/// Whether the library's whole-image processor would leave an empty image: it reads its working image, which nobody filled.
bool isLeftEmptyByTheLibrary(const Conversion& conversion, ElementType inputType);

/// Converts slice by slice with the library's two-dimensional processor, after the test of the range where `bRangeTest` says so.
boost::shared_ptr<image::BaseImage> convertSlices(const boost::shared_ptr<Picture>& picture, const Conversion& conversion,
                                                  bool bRangeTest, const ProgressListener& listener);

/// The library's processor of a conversion, that waits for its images.
boost::shared_ptr<imaproc::color::ColorConvertImgLvl1> makeProcessor(const Conversion& conversion);

/// Takes the target and the matrix of a processor over. Throws std::runtime_error if it has no transform.
void takeTransform(const imaproc::color::ColorConvertImgLvl1& processor, Conversion& conversion);

/// Converts by that processor, or around it where it would leave an empty image. What the library refuses comes out as its own
/// exception. The picture is kept alive by the call alone.
boost::shared_ptr<image::BaseImage> convertPicture(const boost::shared_ptr<imaproc::color::ColorConvertImgLvl1>& processor,
                                                   const boost::shared_ptr<Picture>& picture, const Conversion& conversion,
                                                   const ProgressListener& listener);

/// Converts. What the library refuses comes out as its own exception. The picture is kept alive by the call alone.
boost::shared_ptr<image::BaseImage> convertPicture(const boost::shared_ptr<Picture>& picture, const Conversion& conversion,
                                                   const ProgressListener& listener);
} // namespace kovis::tool
