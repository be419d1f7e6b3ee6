#pragma once

#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImgLvl3.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/Kernel/convertPlanes.h"
#include "KOVISIPL/KOVISIPLColor/Processor/stripPlanes.h"

// The body of ColorConvertImgLvl3::genericProcessFunction, for the units that register it. Plain x86-64 code in all of them: the
// instruction sets only name the kernels.

namespace kovis::imaproc::color
{
namespace details
{
/// Gives an input channel that shows the memory of an output channel the output's run. Each strip stages by itself what has no
/// room past its end, and a row would then read the channel as it was, and not what the rows before it wrote.
template <class Tin, class Tout>
void shareStaging(const image::BaseImageYStripColor2d& inStrip, const image::BaseImageYStripColor2d& outStrip, const Tin** in,
                  Tout** out)
{
    if constexpr (sizeof(Tin) == sizeof(Tout))
    {
        if (inStrip.getNbElements() != outStrip.getNbElements())
        {
            return;
        }
        for (unsigned long c = 0; c < inStrip.getSizeC(); ++c)
        {
            const void* const source = inStrip.getSourceAddress(c);
            for (unsigned long o = 0; o < outStrip.getSizeC(); ++o)
            {
                if (outStrip.getSourceAddress(o) == source)
                {
                    in[c] = reinterpret_cast<const Tin*>(out[o]);
                }
            }
        }
    }
}
} // namespace details

template <class Tin, class Tout, eInstructionSet::domain A, eInstructionSet::domain B>
ProcessingResult<bool> ColorConvertImgLvl3::genericProcessFunction(const processor::ProcessingInfo& info)
{
    const auto in = details::accessPlanes<Tin, BaseInputYStripColor2dAttribute>(m_inputParser, m_inColorYStrip2d.get(),
                                                                                "ColorConvertImgLvl3");
    const image::BaseImageYStripColor2d& inStrip = m_inColorYStrip2d->getBaseImageYStripColor2d();
    const ConversionStep input(inStrip.getColorGeometryType(), static_cast<unsigned int>(inStrip.getSizeC()),
                               m_inColorYStrip2d->getImageBufferType());

    const auto out = details::accessPlanes<Tout, BaseOutputYStripColor2dAttribute>(m_outputParser, m_outColorYStrip2d.get(),
                                                                                   "ColorConvertImgLvl3");
    const image::BaseImageYStripColor2d& outStrip = m_outColorYStrip2d->getBaseImageYStripColor2d();
    const ConversionStep output(outStrip.getColorGeometryType(), static_cast<unsigned int>(outStrip.getSizeC()),
                                m_outColorYStrip2d->getImageBufferType());

    details::shareStaging(inStrip, outStrip, in.get(), out.get());
    convertPlanes<Tin, Tout, A, B>(input, output, m_inColorConversionTransform->getDataItemNode().getMatrix(), info.m_nbElements,
                                   in.get(), out.get());
    return ProcessingResult<bool>(true);
}
} // namespace kovis::imaproc::color
