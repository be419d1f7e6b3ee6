#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/getConversionRoute.h"

#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/Kernel/ConversionChain.h"

namespace kovis::imaproc::color
{
std::vector<image::eColorGeometryType> getConversionRoute(const image::eColorGeometryType& from,
                                                          const image::eColorGeometryType& to)
{
    std::vector<image::eColorGeometryType> route;
    if (isCopied(from, to))
    {
        route.push_back(from);
        return route;
    }
    // Channels and element types of the ends decide nothing.
    for (const ConversionStep& step :
         buildConversionChain(ConversionStep(from, 0U, image::eIBT_Real), ConversionStep(to, 0U, image::eIBT_Real)))
    {
        route.push_back(step.get<0>());
    }
    return route;
}
} // namespace kovis::imaproc::color
