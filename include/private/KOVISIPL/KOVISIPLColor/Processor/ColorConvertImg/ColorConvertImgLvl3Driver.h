#pragma once

#include "KOVIS/KOVISImageProcessing/RawStripParser.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImgLvl3.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/Kernel/convertPlanes.h"

#include <memory>

// The body of ColorConvertImgLvl3::genericProcessFunction, for the units that register it. Plain x86-64 code in all of them: the
// instruction sets only name the kernels.

namespace kovis::imaproc::color
{
namespace details
{
/// The parser as one of elements T. Throws KOVISIPLColorException if there is none, or one of another type.
template <class T, class A>
RawYStripUserColor2dParser<T, A>& accessParser(const boost::shared_ptr<processor::BaseDataParser>& parser)
{
    auto* const typed = dynamic_cast<RawYStripUserColor2dParser<T, A>*>(parser.get());
    if (typed == nullptr)
    {
        throwUnboundStrip();
    }
    return *typed;
}

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
    const image::BaseImageYStripColor2d& inStrip = m_inColorYStrip2d->getBaseImageYStripColor2d();
    const ConversionStep input(inStrip.getColorGeometryType(), static_cast<unsigned int>(inStrip.getSizeC()),
                               m_inColorYStrip2d->getImageBufferType());
    auto& inParser = details::accessParser<Tin, BaseInputYStripColor2dAttribute>(m_inputParser);
    const std::unique_ptr<const Tin*[]> in(new const Tin*[input.get<1>()]);
    for (unsigned int c = 0; c < input.get<1>(); ++c)
    {
        in[c] = inParser.accessBuffer(c);
    }

    const image::BaseImageYStripColor2d& outStrip = m_outColorYStrip2d->getBaseImageYStripColor2d();
    const ConversionStep output(outStrip.getColorGeometryType(), static_cast<unsigned int>(outStrip.getSizeC()),
                                m_outColorYStrip2d->getImageBufferType());
    auto& outParser = details::accessParser<Tout, BaseOutputYStripColor2dAttribute>(m_outputParser);
    const std::unique_ptr<Tout*[]> out(new Tout*[output.get<1>()]);
    for (unsigned int c = 0; c < output.get<1>(); ++c)
    {
        out[c] = outParser.accessBuffer(c);
    }

    details::shareStaging(inStrip, outStrip, in.get(), out.get());
    convertPlanes<Tin, Tout, A, B>(input, output, m_inColorConversionTransform->getDataItemNode().getMatrix(), info.m_nbElements,
                                   in.get(), out.get());
    return ProcessingResult<bool>(true);
}
} // namespace kovis::imaproc::color
