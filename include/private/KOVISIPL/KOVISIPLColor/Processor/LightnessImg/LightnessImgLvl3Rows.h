#pragma once

#include "KOVIS/KOVISImageProcessing/KernelTable.h"
#include "KOVISIPL/KOVISIPLColor/Processor/LightnessImg/Kernel/LightnessKernels.h"
#include "KOVISIPL/KOVISIPLColor/Processor/LightnessImg/LightnessImgLvl3.h"
#include "KOVISIPL/KOVISIPLColor/Processor/LightnessImg/throwTooFewChannels.h"
#include "KOVISIPL/KOVISIPLColor/Processor/stripPlanes.h"

// The kernels of LightnessImgLvl3 and their rows, for the units that register them. Plain x86-64 code in all of them: the
// instruction set only names the kernel.

namespace kovis::imaproc::color
{
template <class T, eInstructionSet::domain ISA>
ProcessingResult<bool> LightnessImgLvl3::genericProcessFunction(const processor::ProcessingInfo& info)
{
    const auto in =
        details::accessPlanes<T, BaseInputYStripColor2dAttribute>(m_inputParser, m_inColorYStrip2d.get(), "LightnessImgLvl3");
    T* const out = details::accessParser<RawYStrip2dParser<T, BaseOutputYStrip2dAttribute>>(m_outputParser, "LightnessImgLvl3")
                       .accessBuffer();
    const unsigned long sizeC = m_inColorYStrip2d->getBaseImageYStripColor2d().getSizeC();
    const attr::eLightnessType type = m_inLightnessType->getValue();
    if (type != attr::eLT_Average && type != attr::eLT_Lightness && sizeC < 3)
    {
        details::throwTooFewChannels(sizeC); // level 1 refuses the luminosity earlier; who drives level 3 alone is told here
    }
    kernel::lightness<typename simd::FormOf<ISA, ISA>::Register, T>(type, sizeC, info.m_nbElements, in.get(), out);
    return ProcessingResult<bool>(true);
}

namespace details
{
/// The kernels of one form, for its rows.
template <eInstructionSet::domain ISA>
struct LightnessImgLvl3Kernels
{
    template <class T>
    auto operator()() const
    {
        return &LightnessImgLvl3::template genericProcessFunction<T, ISA>;
    }
};

/// Enters a row for each buffer type. The place is what the report of refused rows names.
template <eInstructionSet::domain ISA>
bool enterLightnessTable(const SourcePlace& place)
{
    return enterTable<LightnessImgLvl3, 1, ISA>(LightnessImgLvl3Kernels<ISA>(), place);
}

/// The same for a form that has a kernel of float alone.
template <eInstructionSet::domain ISA>
bool enterLightnessFloatRow(const SourcePlace& place)
{
    return enterRow<LightnessImgLvl3, ISA, eInstructionSet::eIS_Generic, image::eIBT_Real>(LightnessImgLvl3Kernels<ISA>(), place);
}
} // namespace details
} // namespace kovis::imaproc::color
