#pragma once

#include "KOVIS/KOVISImage/ImageFactory.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImg.h"

#include <gtest/gtest.h>

#include <array>

namespace kovis::test
{
using Pixel = std::array<double, 3>;

/// One pixel of three channels of T, through the entry function into a result of three channels of R.
template <class T, class R = float>
Pixel convertPixel(image::eColorGeometryType from, image::eColorGeometryType to, const Pixel& pixel)
{
    using namespace image;
    const auto input = createImage2d(1, 1, from, BufferTypeOf<T>::g_value);
    for (unsigned long c = 0; c < 3; ++c)
    {
        planeData<T>(input, c)[0] = static_cast<T>(pixel[c]);
    }
    const auto result = createImage2d(1, 1, to, BufferTypeOf<R>::g_value);
    imaproc::color::colorConvertImg(input, to, result);
    Pixel converted = {};
    for (unsigned long c = 0; c < 3; ++c)
    {
        converted[c] = static_cast<double>(planeData<R>(result, c)[0]);
    }
    return converted;
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
