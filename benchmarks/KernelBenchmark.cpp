// The kernels of a level 3 strip, per form and pair of element types, beside a plain copy and the generic form: one strip that
// stays in the level 2 cache, run again and again.
#include "KOVIS/KOVISBaseProcessing/AlgorithmFunctionSelector.h"
#include "KOVIS/KOVISCore/isAvailable.h"
#include "KOVIS/KOVISImage/ImageFactory.h"
#include "KOVISIPL/KOVISIPLAttributes/ColorConversionTransform.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImgLvl3.h"
#include "Timing.h"

#include <boost/make_shared.hpp>

#include <string>
#include <vector>

namespace kovis::bench
{
namespace
{
using imaproc::color::ColorConvertImgLvl3;

struct Family
{
    const char* m_name;
    image::eColorGeometryType m_from;
    image::eColorGeometryType m_to;
};
constexpr Family g_families[] = {
    {"linearConvert", image::eCGT_Rgb, image::eCGT_YPbPr},        {"fromRGBToHSVConvert", image::eCGT_Rgb, image::eCGT_HSV},
    {"fromHSVToRGBConvert", image::eCGT_HSV, image::eCGT_Rgb},    {"fromRGBToHLSConvert", image::eCGT_Rgb, image::eCGT_HLS},
    {"fromHLSToRGBConvert", image::eCGT_HLS, image::eCGT_Rgb},    {"sRGBtoXYZConvert", image::eCGT_Rgb, image::eCGT_XYZ},
    {"fromXYZToLabConvert", image::eCGT_XYZ, image::eCGT_CieLab}, {"fromLabToXYZConvert", image::eCGT_CieLab, image::eCGT_XYZ},
    {"fromXYZToLuvConvert", image::eCGT_XYZ, image::eCGT_CieLuv}, {"fromLuvToXYZConvert", image::eCGT_CieLuv, image::eCGT_XYZ}};

struct Form
{
    const char* m_name;
    eInstructionSet::domain m_first;
    eInstructionSet::domain m_second;
    bool m_bFloatOnly;
};
constexpr Form g_forms[] = {{"generic", eInstructionSet::eIS_Generic, eInstructionSet::eIS_Generic, false},
                            {"sse2", eInstructionSet::eIS_SSE2, eInstructionSet::eIS_SSE2, false},
                            {"avx", eInstructionSet::eIS_AVX, eInstructionSet::eIS_AVX, true},
                            {"avx2", eInstructionSet::eIS_AVX2, eInstructionSet::eIS_AVX2, false},
                            {"fma3_avx2", eInstructionSet::eIS_FMA3, eInstructionSet::eIS_AVX2, false}};

constexpr unsigned long g_sizeX = 256;
constexpr unsigned long g_sizeY = 64;

void runForm(const Form& form, const boost::shared_ptr<ColorConvertImgLvl3>& processor)
{
    processor::InstructionSetsIdentifier sets;
    sets.init(form.m_first, form.m_second);
    ColorConvertImgLvl3::forceInstructionSets(sets);
    processor::executeSyncRun(processor);
}

void runKernel(benchmark::State& state, const Family& family, const Form& form, image::eImageBufferType fromType,
               image::eImageBufferType toType)
{
    const boost::shared_ptr<const image::BaseImage> input = makeImage(g_sizeX, g_sizeY, family.m_from, fromType);
    const auto output = image::createImage2d(g_sizeX, g_sizeY, family.m_to, toType);
    const auto processor = boost::make_shared<ColorConvertImgLvl3>();
    processor->init(processor::ePRP_NoRules);
    processor->set<imaproc::attr::InColorYStrip2d>(image::makeInputStrip(input, 0, g_sizeY));
    processor->set<imaproc::attr::InColorConversionTransform>(imaproc::attr::createColorConversionTransform(family.m_to));
    processor->set<imaproc::attr::OutColorYStrip2d>(image::makeOutputStrip(output, 0, g_sizeY));

    std::vector<Reference> references{{"copy", [&] { copyPlanes(*input, *output); }}};
    if (&form != &g_forms[0])
    {
        references.push_back({"generic", [&] { runForm(g_forms[0], processor); }});
    }
    runBeside(
        state, [&] { runForm(form, processor); }, references, g_sizeX * g_sizeY);
    ColorConvertImgLvl3::releaseForcedInstructionSets();
}
} // namespace

void registerKernelBenchmarks()
{
    for (const Family& family : g_families)
    {
        for (const Form& form : g_forms)
        {
            if (!core::isAvailable(form.m_first) || !core::isAvailable(form.m_second))
            {
                continue;
            }
            for (int from = image::eIBT_Int8; from <= image::eIBT_Real; ++from)
            {
                for (int to = image::eIBT_Int8; to <= image::eIBT_Real; ++to)
                {
                    if (form.m_bFloatOnly && (from != image::eIBT_Real || to != image::eIBT_Real))
                    {
                        continue;
                    }
                    const auto fromType = static_cast<image::eImageBufferType>(from);
                    const auto toType = static_cast<image::eImageBufferType>(to);
                    const std::string name = std::string("kernel/") + family.m_name + "/" + form.m_name + "/" +
                                             image::getElementTypeName(fromType) + "_" + image::getElementTypeName(toType);
                    benchmark::RegisterBenchmark(name.c_str(), [&family, &form, fromType, toType](benchmark::State& state)
                                                 { runKernel(state, family, form, fromType, toType); })
                        ->UseManualTime()
                        ->Unit(benchmark::kMicrosecond);
                }
            }
        }
    }
}
} // namespace kovis::bench
