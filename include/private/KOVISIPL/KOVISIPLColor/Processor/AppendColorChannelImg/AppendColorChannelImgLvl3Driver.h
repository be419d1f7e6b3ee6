#pragma once

#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/AppendColorChannelImgLvl3.h"
#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/Kernel/AppendKernels.h"
#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/throwShortOutput.h"
#include "KOVISIPL/KOVISIPLColor/Processor/stripPlanes.h"

// The body of AppendColorChannelImgLvl3::genericProcessFunction, for the units that register it. Plain x86-64 code in all of
// them: the instruction set only names the kernels. There are 343 of it in a unit, so that what depends on fewer types stands
// apart.

namespace kovis::imaproc::color
{
namespace details
{
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
    static constexpr const char* className = "AppendColorChannelImgLvl3";
    const unsigned long sizeC1 = m_inColorYStrip2d1->getBaseImageYStripColor2d().getSizeC();
    const auto in1 = details::accessPlanes<T1, BaseInputYStripColor2dAttribute>(m_inputParser1, sizeC1, className);
    const unsigned long sizeC2 = m_inColorYStrip2->getBaseImageYStripColor2d().getSizeC();
    const auto in2 = details::accessPlanes<T2, BaseInputYStripColor2dAttribute>(m_inputParser2, sizeC2, className);
    const unsigned long sizeCOut = m_outColorYStrip2d->getBaseImageYStripColor2d().getSizeC();
    const auto out = details::accessPlanes<Tout, BaseOutputYStripColor2dAttribute>(m_outputParser, sizeCOut, className);
    if (sizeCOut < sizeC1 + sizeC2)
    {
        details::throwShortOutput(sizeC1, sizeC2, sizeCOut);
    }
    details::appendPlanes<ISA>(sizeC1, info.m_nbElements, in1.get(), out.get());
    details::appendPlanes<ISA>(sizeC2, info.m_nbElements, in2.get(), out.get() + sizeC1);
    return ProcessingResult<bool>(true);
}
} // namespace kovis::imaproc::color
