#pragma once

#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/Kernel/ConversionChain.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/Kernel/conversionErrors.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/Kernel/processConversion.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <vector>

namespace kovis::imaproc::color
{
/// Throws KOVISIPLColorException if a link of the chain would read past the user matrix's end.
inline void checkUserMatrix(const ConversionChain& chain, const std::vector<float>& matrix)
{
    for (std::size_t k = 0; k + 1 < chain.size(); ++k)
    {
        if (chain[k].get<0>() == image::eCGT_User || chain[k + 1].get<0>() == image::eCGT_User)
        {
            const unsigned int inSizeC = chain[k].get<1>();
            const unsigned int outSizeC = chain[k + 1].get<1>();
            if (matrix.size() < outSizeC * (inSizeC + std::size_t{1}))
            {
                throwShortMatrix(matrix.size(), inSizeC, outSizeC);
            }
        }
    }
}

/// One link: from entry k of the chain to the next.
template <eInstructionSet::domain ISA1, eInstructionSet::domain ISA2, class Tin, class Tout>
void processLink(const ConversionChain& chain, std::size_t k, const std::vector<float>& matrix, unsigned long count,
                 const Tin** in, Tout** out)
{
    const ConversionStep& from = chain[k];
    const ConversionStep& to = chain[k + 1];
    processConversion<ISA1, ISA2, Tin, Tout>(from.get<0>(), from.get<1>(), from.get<2>(), to.get<0>(), to.get<1>(), to.get<2>(),
                                             matrix, count, in, out);
}

/// Converts count pixels from the planes of the input to those of the output. Equal geometries other than User are a copy by
/// the copy cast; everything else walks the chain, its values between the ends in float working planes that lie count floats
/// apart without padding, so that a vector form needs a count that is a multiple of 32 for chains of three entries and more.
/// A middle link runs in place on the working planes. Throws what the chain's links throw; planes written stay written.
template <class Tin, class Tout, eInstructionSet::domain ISA1, eInstructionSet::domain ISA2>
void convertPlanes(const ConversionStep& input, const ConversionStep& output, const std::vector<float>& matrix,
                   unsigned long count, const Tin** in, Tout** out)
{
    if (isCopied(input.get<0>(), output.get<0>()))
    {
        kernel::copyConvert<typename simd::FormOf<ISA1, ISA2>::Register, Tin, Tout>(input.get<1>(), count, in, out);
        return;
    }

    const ConversionChain chain = buildConversionChain(input, output);
    checkUserMatrix(chain, matrix);
    if (chain.size() == 2)
    {
        processLink<ISA1, ISA2, Tin, Tout>(chain, 0, matrix, count, in, out);
        return;
    }

    unsigned int maxC = 0;
    for (std::size_t k = 1; k + 1 < chain.size(); ++k)
    {
        maxC = std::max(maxC, chain[k].get<1>());
    }
    const std::unique_ptr<float[]> block(new float[count * maxC]);
    const std::unique_ptr<float*[]> planes(new float*[maxC]);
    for (unsigned int c = 0; c < maxC; ++c)
    {
        planes[c] = block.get() + c * count;
    }
    const float** const sources = const_cast<const float**>(planes.get());

    processLink<ISA1, ISA2, Tin, float>(chain, 0, matrix, count, in, planes.get());
    for (std::size_t k = 1; k + 2 < chain.size(); ++k)
    {
        processLink<ISA1, ISA2, float, float>(chain, k, matrix, count, sources, planes.get());
    }
    processLink<ISA1, ISA2, float, Tout>(chain, chain.size() - 2, matrix, count, sources, out);
}
} // namespace kovis::imaproc::color
