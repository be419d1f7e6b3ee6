#pragma once

#include "KOVIS/KOVISImageProcessing/KernelTable.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImgLvl3Driver.h"

namespace kovis::imaproc::color::details
{
/// The rows of the form that A and B name.
template <eInstructionSet::domain A, eInstructionSet::domain B>
using ColorConvertImgLvl3Rows = KernelTable<ColorConvertImgLvl3, A, B>;

/// The kernels of that form, for its rows.
template <eInstructionSet::domain A, eInstructionSet::domain B>
struct ColorConvertImgLvl3Kernels
{
    template <class Tin, class Tout>
    auto operator()() const
    {
        return &ColorConvertImgLvl3::template genericProcessFunction<Tin, Tout, A, B>;
    }
};
} // namespace kovis::imaproc::color::details
