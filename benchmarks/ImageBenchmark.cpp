// Whole images through colorConvertImg, into a result that is given and into one that the run makes.
#include "KOVIS/KOVISCore/Scheduler.h"
#include "KOVIS/KOVISImage/ImageFactory.h"
#include "KOVISIPL/KOVISIPLAttributes/ColorConversionTransform.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImg.h"
#include "Timing.h"

#include <boost/make_shared.hpp>

#include <functional>
#include <string>
#include <vector>

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
    {"rgb_f32_to_hls_f32", image::eCGT_Rgb, image::eCGT_HLS, image::eIBT_Real, image::eIBT_Real},
    {"hls_f32_to_rgb_f32", image::eCGT_HLS, image::eCGT_Rgb, image::eIBT_Real, image::eIBT_Real},
    {"rgb_u8_to_hls_f32", image::eCGT_Rgb, image::eCGT_HLS, image::eIBT_UInt8, image::eIBT_Real},
    {"xyz_f32_to_lab_f32", image::eCGT_XYZ, image::eCGT_CieLab, image::eIBT_Real, image::eIBT_Real},
    {"lab_f32_to_xyz_f32", image::eCGT_CieLab, image::eCGT_XYZ, image::eIBT_Real, image::eIBT_Real},
    // measured and made float first; a float image would convert zeros
    {"rgb_u8_to_xyz_f32", image::eCGT_Rgb, image::eCGT_XYZ, image::eIBT_UInt8, image::eIBT_Real},
    {"xyz_f32_to_rgb_f32", image::eCGT_XYZ, image::eCGT_Rgb, image::eIBT_Real, image::eIBT_Real},
    {"rgb_u8_to_lab_f32", image::eCGT_Rgb, image::eCGT_CieLab, image::eIBT_UInt8, image::eIBT_Real},
    {"lab_f32_to_rgb_f32", image::eCGT_CieLab, image::eCGT_Rgb, image::eIBT_Real, image::eIBT_Real},
    {"rgb_u8_to_luv_f32", image::eCGT_Rgb, image::eCGT_CieLuv, image::eIBT_UInt8, image::eIBT_Real},
    {"rgb_f32_to_luv_f32", image::eCGT_Rgb, image::eCGT_CieLuv, image::eIBT_Real, image::eIBT_Real},
    {"luv_f32_to_rgb_f32", image::eCGT_CieLuv, image::eCGT_Rgb, image::eIBT_Real, image::eIBT_Real},
    {"ycbcr_u8_to_hsv_f32", image::eCGT_YCbCr, image::eCGT_HSV, image::eIBT_UInt8, image::eIBT_Real},
};

struct Size
{
    unsigned long m_x;
    unsigned long m_y;
};
constexpr Size g_sizes[] = {{64, 64}, {512, 512}, {2048, 2048}, {6000, 4000}};

/// Times the work beside a copy, and where it has more than one thread beside itself on one.
void runOnThreads(benchmark::State& state, unsigned int nbThreads, const std::function<void()>& work,
                  const image::BaseImage& input, image::BaseImage& copied)
{
    const auto runOn = [&work](unsigned int nb)
    {
        core::setMaxConcurrency(nb);
        work();
    };
    std::vector<Reference> references{{"copy", [&] { copyPlanes(input, copied); }}};
    if (nbThreads > 1)
    {
        references.push_back({"one_thread", [&] { runOn(1); }});
    }
    runBeside(
        state, [&] { runOn(nbThreads); }, references, input.getSizeX() * input.getSizeY());
    core::setMaxConcurrency(0);
}

void convertGiven(benchmark::State& state, const Conversion& conversion, const Size& size, unsigned int nbThreads)
{
    const boost::shared_ptr<const image::BaseImage> input =
        makeImage(size.m_x, size.m_y, conversion.m_from, conversion.m_fromType);
    const auto output = image::createImage2d(size.m_x, size.m_y, conversion.m_to, conversion.m_toType);
    runOnThreads(
        state, nbThreads, [&] { imaproc::color::colorConvertImg(input, conversion.m_to, output); }, *input, *output);
}

void convertMade(benchmark::State& state, const Conversion& conversion, const Size& size, unsigned int nbThreads)
{
    const boost::shared_ptr<const image::BaseImage> input =
        makeImage(size.m_x, size.m_y, conversion.m_from, conversion.m_fromType);
    const auto copied = image::createImage2d(size.m_x, size.m_y, conversion.m_to, conversion.m_toType);
    runOnThreads(
        state, nbThreads, [&] { benchmark::DoNotOptimize(imaproc::color::colorConvertImg(input, conversion.m_to)); }, *input,
        *copied);
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
