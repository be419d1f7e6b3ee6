// Whole images through colorConvertImg, into a result that is given and into one that the run makes.
#include "KOVIS/KOVISCore/Scheduler.h"
#include "KOVIS/KOVISImage/ImageFactory.h"
#include "KOVISIPL/KOVISIPLAttributes/ColorConversionTransform.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImg.h"
#include "Timing.h"

#include <boost/make_shared.hpp>

#include <string>

namespace kovis::bench
{
namespace
{
using image::eColorGeometryType;
using image::eImageBufferType;

struct Conversion
{
    const char* m_name;
    eColorGeometryType m_from;
    eColorGeometryType m_to;
    eImageBufferType m_fromType;
    eImageBufferType m_toType; ///< of a result that is given
};

constexpr Conversion g_conversions[] = {
    {"rgb_f32_to_ypbpr_f32", image::eCGT_Rgb, image::eCGT_YPbPr, image::eIBT_Real, image::eIBT_Real},
    {"rgb_f32_to_hsv_f32", image::eCGT_Rgb, image::eCGT_HSV, image::eIBT_Real, image::eIBT_Real},
    {"hsv_f32_to_rgb_f32", image::eCGT_HSV, image::eCGT_Rgb, image::eIBT_Real, image::eIBT_Real},
    {"rgb_u8_to_ycbcr_u8", image::eCGT_Rgb, image::eCGT_YCbCr, image::eIBT_UInt8, image::eIBT_UInt8},
    {"rgb_u8_to_hsv_f32", image::eCGT_Rgb, image::eCGT_HSV, image::eIBT_UInt8, image::eIBT_Real},
    {"rgb_u8_to_grey_f32", image::eCGT_Rgb, image::eCGT_Grey, image::eIBT_UInt8, image::eIBT_Real},
    {"ycbcr_u8_to_hsv_f32", image::eCGT_YCbCr, image::eCGT_HSV, image::eIBT_UInt8, image::eIBT_Real},
};

struct Size
{
    unsigned long m_x;
    unsigned long m_y;
};
constexpr Size g_sizes[] = {{64, 64}, {512, 512}, {2048, 2048}, {6000, 4000}};

void convertGiven(benchmark::State& state, const Conversion& conversion, const Size& size, unsigned int nbThreads)
{
    core::setMaxConcurrency(nbThreads);
    const boost::shared_ptr<const image::BaseImage> input =
        makeImage(size.m_x, size.m_y, conversion.m_from, conversion.m_fromType);
    const auto output = image::createImage2d(size.m_x, size.m_y, conversion.m_to, conversion.m_toType);
    runBesideCopy(
        state, [&] { imaproc::color::colorConvertImg(input, conversion.m_to, output); }, *input, *output);
    core::setMaxConcurrency(0);
}

void convertMade(benchmark::State& state, const Conversion& conversion, const Size& size, unsigned int nbThreads)
{
    core::setMaxConcurrency(nbThreads);
    const boost::shared_ptr<const image::BaseImage> input =
        makeImage(size.m_x, size.m_y, conversion.m_from, conversion.m_fromType);
    const auto copied = image::createImage2d(size.m_x, size.m_y, conversion.m_to, conversion.m_toType);
    runBesideCopy(
        state, [&] { benchmark::DoNotOptimize(imaproc::color::colorConvertImg(input, conversion.m_to)); }, *input, *copied);
    core::setMaxConcurrency(0);
}
} // namespace

void registerImageBenchmarks()
{
    for (const Conversion& conversion : g_conversions)
    {
        for (const Size& size : g_sizes)
        {
            for (const unsigned int nbThreads : {1U, 2U})
            {
                const std::string name = std::string(conversion.m_name) + "/" + std::to_string(size.m_x) + "x" +
                                         std::to_string(size.m_y) + "/threads:" + std::to_string(nbThreads);
                benchmark::RegisterBenchmark(("image_given/" + name).c_str(), [&, nbThreads](benchmark::State& state)
                                             { convertGiven(state, conversion, size, nbThreads); })
                    ->UseManualTime()
                    ->Unit(benchmark::kMicrosecond);
                benchmark::RegisterBenchmark(("image_made/" + name).c_str(), [&, nbThreads](benchmark::State& state)
                                             { convertMade(state, conversion, size, nbThreads); })
                    ->UseManualTime()
                    ->Unit(benchmark::kMicrosecond);
            }
        }
    }
}
} // namespace kovis::bench
