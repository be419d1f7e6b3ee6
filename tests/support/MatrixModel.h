#pragma once

#include "support/PixelModel.h"
#include "support/SRGBModel.h"

// Planes through a matrix, with and without the sRGB curve on each sample.

namespace kovis::test
{
/// Row after row within each block, so that equal planes on both sides read back what was written. The factor of a coefficient is
/// what sampleValue makes of the loaded sample, anew in each row.
template <class Tin, class Tout, class SampleValue>
void modelMatrix(const ModelForm& form, unsigned int inSizeC, unsigned int outSizeC, const float* matrix, unsigned long count,
                 const Tin* const* in, Tout* const* out, SampleValue sampleValue)
{
    const unsigned long reach = outSizeC == 0 ? 0 : modelReach(form, count);
    for (unsigned long begin = 0; begin < reach; begin += form.m_blockLength)
    {
        for (unsigned int r = 0; r < outSizeC; ++r)
        {
            const float* const row = matrix + r * (inSizeC + 1);
            for (unsigned long i = begin; i < begin + form.m_blockLength; ++i)
            {
                float sum = row[inSizeC];
                for (unsigned int c = 0; c < inSizeC; ++c)
                {
                    sum = modelMulAdd(form, sampleValue(modelLoad(in[c][i])), row[c], sum);
                }
                out[r][i] = modelStore<Tout>(form, sum);
            }
        }
    }
}

template <class Tin, class Tout>
void modelLinear(const ModelForm& form, unsigned int inSizeC, unsigned int outSizeC, const float* matrix, unsigned long count,
                 const Tin* const* in, Tout* const* out)
{
    modelMatrix(form, inSizeC, outSizeC, matrix, count, in, out, [](float sample) { return sample; });
}

template <class Tin, class Tout>
void modelSRGBToXYZ(const ModelForm& form, unsigned int inSizeC, unsigned int outSizeC, const float* matrix, unsigned long count,
                    const Tin* const* in, Tout* const* out)
{
    modelMatrix(form, inSizeC, outSizeC, matrix, count, in, out, [&form](float sample) { return modelSRGBCurve(form, sample); });
}
} // namespace kovis::test
