#pragma once

#include "KOVIS/KOVISImageProcessing/KernelTable.h"
#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/AppendColorChannelImgLvl3.h"
#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/Kernel/AppendKernels.h"
#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/throwShortOutput.h"
#include "KOVISIPL/KOVISIPLColor/Processor/stripPlanes.h"

// The kernels of AppendColorChannelImgLvl3 and their rows, for the units that register them. Plain x86-64 code in all of
// them: the instruction set only names the kernels. A unit has 343 of them, so that what depends on fewer types stands
// apart.

namespace kovis::imaproc::color
{
namespace details
{
inline constexpr const char* g_appendClassName = "AppendColorChannelImgLvl3";

/// The planes of one input into as many planes of the output, each finished before the next begins.
template <eInstructionSet::domain ISA, class Tin, class Tout>
void appendPlanes(unsigned long nbPlanes, unsigned long count, const Tin* const* in, Tout* const* out)
{
    for (unsigned long c = 0; c < nbPlanes; ++c)
    {
        kernel::appendConvert<typename simd::FormOf<ISA, ISA>::Register, Tin, Tout>(count, in[c], out[c]);
    }
}
} // namespace details

template <class T1, class T2, class Tout, eInstructionSet::domain ISA>
ProcessingResult<bool> AppendColorChannelImgLvl3::genericProcessFunction(const processor::ProcessingInfo& info)
{
    const auto in1 = details::accessPlanes<T1, BaseInputYStripColor2dAttribute>(m_inputParser1, m_inColorYStrip2d1.get(),
                                                                                details::g_appendClassName);
    const auto in2 = details::accessPlanes<T2, BaseInputYStripColor2dAttribute>(m_inputParser2, m_inColorYStrip2.get(),
                                                                                details::g_appendClassName);
    const auto out = details::accessPlanes<Tout, BaseOutputYStripColor2dAttribute>(m_outputParser, m_outColorYStrip2d.get(),
                                                                                   details::g_appendClassName);
    const unsigned long sizeC1 = m_inColorYStrip2d1->getBaseImageYStripColor2d().getSizeC();
    const unsigned long sizeC2 = m_inColorYStrip2->getBaseImageYStripColor2d().getSizeC();
    const unsigned long sizeCOut = m_outColorYStrip2d->getBaseImageYStripColor2d().getSizeC();
    if (sizeCOut < sizeC1 + sizeC2)
    {
        details::throwShortOutput(sizeC1, sizeC2, sizeCOut);
    }
    details::appendPlanes<ISA, T1, Tout>(sizeC1, info.m_nbElements, in1.get(), out.get());
    details::appendPlanes<ISA, T2, Tout>(sizeC2, info.m_nbElements, in2.get(), out.get() + sizeC1);
    return ProcessingResult<bool>(true);
}

namespace details
{
/// The kernels of one form, for its rows.
template <eInstructionSet::domain ISA>
struct AppendColorChannelImgLvl3Kernels
{
    template <class T1, class T2, class Tout>
    auto operator()() const
    {
        return &AppendColorChannelImgLvl3::template genericProcessFunction<T1, T2, Tout, ISA>;
    }
};

/// Enters a row for each three buffer types. The place is what the report of refused rows names.
template <eInstructionSet::domain ISA>
bool enterAppendTable(const SourcePlace& place)
{
    return enterTable<AppendColorChannelImgLvl3, 3, ISA>(AppendColorChannelImgLvl3Kernels<ISA>(), place);
}

/// The same for a form that has a kernel of float alone.
template <eInstructionSet::domain ISA>
bool enterAppendFloatRow(const SourcePlace& place)
{
    return enterRow<AppendColorChannelImgLvl3, ISA, eInstructionSet::eIS_Generic, image::eIBT_Real, image::eIBT_Real,
                    image::eIBT_Real>(AppendColorChannelImgLvl3Kernels<ISA>(), place);
}
} // namespace details
} // namespace kovis::imaproc::color
