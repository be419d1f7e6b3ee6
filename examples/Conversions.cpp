// The ways to convert an image, one after the other, and what else is made of images: grey ones, and one with the channels of
// two. Ends with 0 if each gave what it should.
#include "KOVIS/KOVISCore/BaseAction.h"
#include "KOVIS/KOVISImage/ImageFactory.h"
#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/AppendColorChannelImg.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImg.h"
#include "KOVISIPL/KOVISIPLColor/Processor/LightnessImg/LightnessImg.h"

#include <algorithm>
#include <chrono>
#include <exception>
#include <iostream>
#include <memory>
#include <vector>

using namespace kovis::image;
namespace attr = kovis::imaproc::attr;
namespace color = kovis::imaproc::color;

namespace
{
// An RGB image of unsigned bytes, blue all over.
boost::shared_ptr<BaseImage> makeBlueImage()
{
    const auto image = createImage2d(640, 480, eCGT_Rgb, eIBT_UInt8);
    std::fill_n(planeData<unsigned char>(image, 2), 640 * 480, static_cast<unsigned char>(255));
    return image;
}

// The library makes the result, here of float: hue in degrees, saturation from 0 to 1, value on the scale of the input.
bool convertToNewImage()
{
    const boost::shared_ptr<const BaseImage> hsv = color::colorConvertImg(makeBlueImage(), eCGT_HSV);
    return planeData<float>(hsv, 0)[0] == 240.0F && planeData<float>(hsv, 1)[0] == 1.0F && planeData<float>(hsv, 2)[0] == 255.0F;
}

// Into an image of one's own, in any element type: values are rounded and saturate.
bool convertIntoImage()
{
    const auto ycbcr = createImage2d(640, 480, eCGT_YCbCr, eIBT_UInt16);
    color::colorConvertImg(makeBlueImage(), eCGT_YCbCr, ycbcr);
    return planeData<unsigned short>(ycbcr, 0)[0] == 29;
}

// In the background, watched. getRunResult waits, and rethrows what the run failed with.
bool convertInBackground()
{
    const auto run = color::colorConvertImg_async(makeBlueImage(), eCGT_HSV);
    while (run->getState() == kovis::core::eActionState::running)
    {
        run->waitFor(std::chrono::milliseconds(100));
        std::cout << static_cast<int>(100.0 * run->getProgress()) << " %\n";
    }
    return run->getRunResult() && color::getAsyncProcessorOutput(run)->getSizeC() == 3;
}

// By a matrix of one's own: a row per output channel, with a factor per input channel and then the row's offset.
bool convertByMatrix()
{
    const auto transform = attr::createColorConversionTransform(eCGT_User);
    transform->setMatrix({0.0F, 0.0F, 1.0F, 10.0F,  // blue + 10
                          1.0F, 1.0F, 1.0F, 0.0F}); // the sum of all three
    const auto result =
        color::colorConvertImg(makeBlueImage(), boost::shared_ptr<const attr::ColorConversionTransform>(transform));
    return result->getSizeC() == 2 && planeData<float>(result, 0)[0] == 265.0F && planeData<float>(result, 1)[0] == 255.0F;
}

// A volume of four slices, on memory that the caller keeps: one plane after the other, channels first, then slices.
bool convertVolume()
{
    constexpr unsigned long sizeX = 32;
    constexpr unsigned long sizeY = 16;
    const auto memory = std::make_shared<std::vector<float>>(sizeX * sizeY * 3 * 4, 128.0F);
    std::vector<void*> planes;
    for (unsigned long plane = 0; plane < 3 * 4; ++plane)
    {
        planes.push_back(memory->data() + plane * sizeX * sizeY);
    }
    ColorGeometry rgb;
    rgb.init(eCGT_Rgb);
    HomogeneousImageGeometry geometry;
    geometry.init(VolumeGeometry(4), rgb, TemporalGeometry(1), sizeX, sizeY, eIBT_Real);
    // The image needs an owner only where nobody else keeps the memory.
    const auto volume = wrapImage(geometry, planes, boost::shared_ptr<const void>());
    const auto grey = color::colorConvertImg(volume, eCGT_Grey);
    return grey->getSizeZ() == 4 && planeData<float>(grey, 0, 3)[sizeX * sizeY - 1] == 128.0F;
}

// A grey image by one of three formulas, of the element type of the input.
bool makeGreyImage()
{
    const auto average = color::lightnessImg(makeBlueImage());
    const auto luminosity = color::lightnessImg(makeBlueImage(), attr::eLT_Luminosity);
    return average->getColorGeometryType() == eCGT_Grey && planeData<unsigned char>(average, 0)[0] == 85 &&
           planeData<unsigned char>(luminosity, 0)[0] == 18; // 0.07 of the blue
}

// The channels of two images of one size and element type in a third: the first image's, then the second's.
bool appendImages()
{
    const auto rgb = makeBlueImage();
    const auto four = color::appendColorChannelImg(rgb, color::lightnessImg(rgb));
    return four->getColorGeometryType() == eCGT_User && four->getSizeC() == 4 && planeData<unsigned char>(four, 2)[0] == 255 &&
           planeData<unsigned char>(four, 3)[0] == 85;
}

// What does not fit is refused with an exception that says so.
bool refuse()
{
    try
    {
        color::colorConvertImg(makeBlueImage(), eCGT_HSV, createImage2d(10, 10, eCGT_HSV, eIBT_Real));
    }
    catch (const std::exception& error)
    {
        std::cout << error.what() << "\n";
        return true;
    }
    return false;
}
} // namespace

int main()
{
    const bool bGood = convertToNewImage() && convertIntoImage() && convertInBackground() && convertByMatrix() &&
                       convertVolume() && makeGreyImage() && appendImages() && refuse();
    std::cout << (bGood ? "all functions gave what they should\n" : "a function gave something else\n");
    return bGood ? 0 : 1;
}
