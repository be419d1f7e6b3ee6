#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/Kernel/ConversionChain.h"

namespace kovis::imaproc::color
{
using namespace image;

namespace
{
/// The space that joins one with a formula of its own to all others; User stands for none.
eColorGeometryType getHub(eColorGeometryType geometry)
{
    switch (geometry)
    {
    case eCGT_CieLab:
    case eCGT_CieLuv:
        return eCGT_XYZ;
    case eCGT_HLS:
    case eCGT_HSV:
        return eCGT_Rgb;
    default:
        return eCGT_User;
    }
}
} // namespace

ConversionChain buildConversionChain(const ConversionStep& input, const ConversionStep& output)
{
    const eColorGeometryType out = output.get<0>();
    const eColorGeometryType inHub = getHub(input.get<0>());
    const eColorGeometryType outHub = getHub(out);

    ConversionChain chain;
    chain.push_back(input);
    if (inHub == eCGT_User || inHub != out)
    {
        if (inHub != eCGT_User)
        {
            chain.push_back(ConversionStep(inHub, 3U, eIBT_Real));
        }
        if (outHub != eCGT_User && chain.back().get<0>() != outHub)
        {
            chain.push_back(ConversionStep(outHub, 3U, eIBT_Real));
        }
    }
    chain.push_back(output);
    return chain;
}
} // namespace kovis::imaproc::color
