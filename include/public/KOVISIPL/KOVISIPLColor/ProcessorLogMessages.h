#pragma once

#include "KOVIS/KOVISUtil/MessageMapRegistrator.h"
#include "KOVISIPL/KOVISIPLColor/KOVISIPLColorExport.h"

namespace kovis::imaproc::color
{
/// Messages of the processors: tool tips and one error.
struct eProcessorMessage
{
    enum domain
    {
        ePM_AppendColorChannelImgGpuLvl3 = 0,
        ePM_AppendColorChannelImgLvl1 = 1,
        ePM_AppendColorChannelImgLvl2 = 2,
        ePM_AppendColorChannelImgLvl3 = 3,
        ePM_ImageOutOfRange = 4, ///< least and greatest value allowed
        ePM_ColorConvertImgLvl1 = 5,
        ePM_ColorConvertImgLvl2 = 6,
        ePM_ColorConvertImgLvl3 = 7,
        ePM_LightnessImgLvl1 = 8,
        ePM_LightnessImgLvl2 = 9,
        ePM_LightnessImgLvl3 = 10
    };
};
} // namespace kovis::imaproc::color

template <>
struct KOVISIPLCOLOR_EXPORT kovis::MessageMapRegistrator<kovis::imaproc::color::eProcessorMessage, void>
{
    static bool process();
};
