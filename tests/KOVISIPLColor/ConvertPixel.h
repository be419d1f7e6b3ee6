#pragma once

#include "KOVIS/KOVISImage/ImageFactory.h"
#include "KOVISIPL/KOVISIPLAttributes/ColorConversionTransform.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImg.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImgLvl2.h"

#include <boost/make_shared.hpp>
#include <gtest/gtest.h>

#include <array>

namespace kovis::test
{
using Pixel = std::array<double, 3>;

using PixelImage = boost::shared_ptr<image::BaseImage>;

template <class T>
PixelImage makePixel(image::eColorGeometryType space, const Pixel& pixel = {})
{
    const PixelImage single = image::createImage2d(1, 1, space, image::BufferTypeOf<T>::g_value);
    for (unsigned long c = 0; c < 3; ++c)
    {
        image::planeData<T>(single, c)[0] = static_cast<T>(pixel[c]);
    }
    return single;
}

template <class T>
Pixel readPixel(const PixelImage& single)
{
    Pixel pixel = {};
    for (unsigned long c = 0; c < 3; ++c)
    {
        pixel[c] = static_cast<double>(image::planeData<T>(single, c)[0]);
    }
    return pixel;
}

/// One pixel of three channels of T, through the entry function into a result of three channels of R.
template <class T, class R = float>
Pixel convertPixel(image::eColorGeometryType from, image::eColorGeometryType to, const Pixel& pixel)
{
    const PixelImage result = makePixel<R>(to);
    imaproc::color::colorConvertImg(makePixel<T>(from, pixel), to, result);
    return readPixel<R>(result);
}

/// A float pixel through level 2, which neither measures samples nor makes a working image.
inline Pixel convertPixelByLevel2(image::eColorGeometryType from, image::eColorGeometryType to, const Pixel& pixel)
{
    const PixelImage result = makePixel<float>(to);
    const auto processor = boost::make_shared<imaproc::color::ColorConvertImgLvl2>();
    processor->init();
    processor->set<imaproc::attr::InSubColorImg2d>(image::getSlice2d(makePixel<float>(from, pixel), 0, 0));
    processor->set<imaproc::attr::InColorConversionTransform>(imaproc::attr::createColorConversionTransform(to));
    processor->set<imaproc::attr::OutSubColorImg2d>(image::getSlice2d(result, 0, 0));
    processor::executeSyncRun(processor);
    return readPixel<float>(result);
}

inline void expectNear(const Pixel& found, const Pixel& published, const Pixel& tolerance)
{
    for (std::size_t c = 0; c < 3; ++c)
    {
        EXPECT_NEAR(found[c], published[c], tolerance[c]) << "channel " << c;
    }
}

inline Pixel allChannels(double tolerance)
{
    return {tolerance, tolerance, tolerance};
}
} // namespace kovis::test
