#pragma once

#include "KOVIS/KOVISImageProcessing/KernelTable.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImgLvl3Driver.h"

namespace kovis::imaproc::color::details
{
/// The kernels of the form that A and B name, for its rows.
template <eInstructionSet::domain A, eInstructionSet::domain B>
struct ColorConvertImgLvl3Kernels
{
    template <class Tin, class Tout>
    auto operator()() const
    {
        return &ColorConvertImgLvl3::template genericProcessFunction<Tin, Tout, A, B>;
    }
};

/// Enters a row for each two buffer types. The place is what the report of refused rows names.
template <eInstructionSet::domain A, eInstructionSet::domain B = A>
bool enterConversionTable(const SourcePlace& place)
{
    return enterTable<ColorConvertImgLvl3, 2, A, B>(ColorConvertImgLvl3Kernels<A, B>(), place);
}

/// The same for a form that has kernels of float alone.
template <eInstructionSet::domain A, eInstructionSet::domain B = A>
bool enterConversionFloatRow(const SourcePlace& place)
{
    return enterRow<ColorConvertImgLvl3, A, B, image::eIBT_Real, image::eIBT_Real>(ColorConvertImgLvl3Kernels<A, B>(), place);
}
} // namespace kovis::imaproc::color::details
