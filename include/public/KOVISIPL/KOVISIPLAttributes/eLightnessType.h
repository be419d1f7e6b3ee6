#pragma once

namespace kovis::imaproc::attr
{
/// How one grey value is made of the channels of a pixel. A number beyond these counts as eLT_Luminosity.
enum eLightnessType : int
{
    eLT_Average = 0,   ///< the mean of all channels
    eLT_Lightness = 1, ///< half the sum of the smallest and the largest channel
    eLT_Luminosity = 2 ///< 0.21, 0.72 and 0.07 of channels 0, 1 and 2
};
} // namespace kovis::imaproc::attr
