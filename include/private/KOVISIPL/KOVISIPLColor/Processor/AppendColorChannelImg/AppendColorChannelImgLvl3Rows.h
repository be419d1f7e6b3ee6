#pragma once

#include "KOVIS/KOVISImageProcessing/KernelTable.h"
#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/AppendColorChannelImgLvl3Driver.h"

namespace kovis::imaproc::color::details
{
/// The rows of the form that ISA names.
template <eInstructionSet::domain ISA>
using AppendColorChannelImgLvl3Rows = KernelTable<AppendColorChannelImgLvl3, ISA>;

/// The kernels of that form, for its rows.
template <eInstructionSet::domain ISA>
struct AppendColorChannelImgLvl3Kernels
{
    template <class T1, class T2, class Tout>
    auto operator()() const
    {
        return &AppendColorChannelImgLvl3::template genericProcessFunction<T1, T2, Tout, ISA>;
    }
};
} // namespace kovis::imaproc::color::details
