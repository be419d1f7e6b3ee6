#pragma once

#include "KOVIS/KOVISBaseImageTools/getLinearTransform.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/Kernel/Kernels.h"

#include <vector>

namespace kovis::imaproc::color
{
/// The platform's matrix between two linear spaces, narrowed to float element by element.
inline std::vector<float> fetchLinearTransform(const image::eColorGeometryType& inGeom, const image::eColorGeometryType& outGeom,
                                               const image::eImageBufferType& inType, const image::eImageBufferType& outType)
{
    const image::LinearTransform transform = image::getLinearTransform(inGeom, outGeom, inType, outType);
    std::vector<float> fixed;
    fixed.reserve(transform.getSize());
    for (std::size_t i = 0; i < transform.getSize(); ++i)
    {
        fixed.push_back(static_cast<float>(transform.getData()[i]));
    }
    return fixed;
}

/// Carries out one link of a chain: count pixels from the planes of one entry to those of the next, by the kernels of the form
/// that ISA1 and ISA2 name. The first branch that holds runs. Planes of the two sides may be the same on a matrix link.
template <eInstructionSet::domain ISA1, eInstructionSet::domain ISA2, class Tin, class Tout>
void processConversion(const image::eColorGeometryType& inGeom, unsigned int inSizeC, const image::eImageBufferType& inType,
                       const image::eColorGeometryType& outGeom, unsigned int outSizeC, const image::eImageBufferType& outType,
                       const std::vector<float>& matrix, unsigned long count, const Tin** in, Tout** out)
{
    using Register = typename simd::FormOf<ISA1, ISA2>::Register;

    if (inGeom == image::eCGT_CieLab)
    {
        kernel::fromLabToXYZConvert<Register, Tin, Tout>(count, in, out);
    }
    else if (outGeom == image::eCGT_CieLab)
    {
        kernel::fromXYZToLabConvert<Register, Tin, Tout>(count, in, out);
    }
    else if (inGeom == image::eCGT_CieLuv)
    {
        kernel::fromLuvToXYZConvert<Register, Tin, Tout>(count, in, out);
    }
    else if (outGeom == image::eCGT_CieLuv)
    {
        kernel::fromXYZToLuvConvert<Register, Tin, Tout>(count, in, out);
    }
    else if (inGeom == image::eCGT_HLS)
    {
        kernel::fromHLSToRGBConvert<Register, Tin, Tout>(count, in, out);
    }
    else if (outGeom == image::eCGT_HLS)
    {
        kernel::fromRGBToHLSConvert<Register, Tin, Tout>(count, in, out);
    }
    else if (inGeom == image::eCGT_HSV)
    {
        kernel::fromHSVToRGBConvert<Register, Tin, Tout>(count, in, out);
    }
    else if (outGeom == image::eCGT_HSV)
    {
        kernel::fromRGBToHSVConvert<Register, Tin, Tout>(count, in, out);
    }
    else if (inGeom == image::eCGT_User || outGeom == image::eCGT_User)
    {
        kernel::linearConvert<Register, Tin, Tout>(inSizeC, outSizeC, matrix.data(), count, in, out);
    }
    else if (inGeom == image::eCGT_Rgb && outGeom == image::eCGT_XYZ)
    {
        const std::vector<float> fixed = fetchLinearTransform(inGeom, outGeom, inType, outType);
        kernel::sRGBtoXYZConvert<Register, Tin, Tout>(inSizeC, outSizeC, fixed.data(), count, in, out);
    }
    else
    {
        const std::vector<float> fixed = fetchLinearTransform(inGeom, outGeom, inType, outType);
        kernel::linearConvert<Register, Tin, Tout>(inSizeC, outSizeC, fixed.data(), count, in, out);
    }
}
} // namespace kovis::imaproc::color
