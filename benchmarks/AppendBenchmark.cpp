// The channel append of an RGB and a grey image per form and pixel type, beside a plain copy of the same four planes: one strip
// that stays in the level 2 cache, run again and again, and a whole image; and kernels of mixed types.
#include "KOVIS/KOVISBaseProcessing/AlgorithmFunctionSelector.h"
#include "KOVIS/KOVISCore/isAvailable.h"
#include "KOVIS/KOVISImage/ImageFactory.h"
#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/AppendColorChannelImg.h"
#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/AppendColorChannelImgLvl3.h"
#include "Timing.h"

#include <benchmark/benchmark.h>

#include <functional>
#include <string>
#include <utility>

namespace kovis::bench
{
namespace
{
using image::eImageBufferType;
using imaproc::color::AppendColorChannelImgLvl3;

constexpr std::pair<const char*, eInstructionSet::domain> g_forms[] = {{"generic", eInstructionSet::eIS_Generic},
                                                                       {"sse2", eInstructionSet::eIS_SSE2},
                                                                       {"avx", eInstructionSet::eIS_AVX},
                                                                       {"avx2", eInstructionSet::eIS_AVX2},
                                                                       {"avx512", eInstructionSet::eIS_AVX512}};

/// Inputs of 3 and 1 channels, and an output.
struct Images
{
    Images(unsigned long sizeX, unsigned long sizeY, eImageBufferType inType, eImageBufferType outType)
        : m_first(makeImage(sizeX, sizeY, image::eCGT_Rgb, inType)),
          m_second(makeImage(sizeX, sizeY, image::eCGT_Grey, inType)),
          m_out(image::createImageUser2d(sizeX, sizeY, 4, outType)),
          m_from(makeImage(sizeX, sizeY, image::eCGT_Rgba, outType)),
          m_to(image::createImageUser2d(sizeX, sizeY, 4, outType))
    {
    }

    /// Runs under a forced set beside a plain copy of four planes of the output's type.
    void run(benchmark::State& state, eInstructionSet::domain set, const std::function<void()>& work) const
    {
        processor::InstructionSetsIdentifier sets;
        sets.init(set);
        AppendColorChannelImgLvl3::forceInstructionSets(sets);
        runBesideCopy(state, work, *m_from, *m_to);
        AppendColorChannelImgLvl3::releaseForcedInstructionSets();
    }

    boost::shared_ptr<image::BaseImage> m_first;
    boost::shared_ptr<image::BaseImage> m_second;
    boost::shared_ptr<image::BaseImage> m_out;
    boost::shared_ptr<image::BaseImage> m_from;
    boost::shared_ptr<image::BaseImage> m_to;
};

void runStrip(benchmark::State& state, eInstructionSet::domain set, eImageBufferType inType, eImageBufferType outType)
{
    constexpr unsigned long sizeY = 64;
    const Images images(256, sizeY, inType, outType);
    const auto processor = AppendColorChannelImgLvl3::createProcessor();
    processor->init(processor::ePRP_NoRules);
    processor->set<imaproc::attr::InColorYStrip2d1>(image::makeInputStrip(images.m_first, 0, sizeY));
    processor->set<imaproc::attr::InColorYStrip2>(image::makeInputStrip(images.m_second, 0, sizeY));
    processor->set<imaproc::attr::OutColorYStrip2d>(image::makeOutputStrip(images.m_out, 0, sizeY));
    images.run(state, set, [&] { processor::executeSyncRun(processor); });
}

void runImage(benchmark::State& state, eInstructionSet::domain set, eImageBufferType inType, eImageBufferType outType)
{
    const Images images(4096, 4096, inType, outType);
    images.run(state, set, [&] { imaproc::color::appendColorChannelImg(images.m_first, images.m_second, images.m_out); });
}

using Run = void (*)(benchmark::State&, eInstructionSet::domain, eImageBufferType, eImageBufferType);

void registerRun(const std::string& place, Run run, eImageBufferType inType, eImageBufferType outType)
{
    for (const auto& [formName, set] : g_forms)
    {
        if (!core::isAvailable(set) ||
            (set == eInstructionSet::eIS_AVX && (inType != image::eIBT_Real || outType != image::eIBT_Real)))
        {
            continue;
        }
        const std::string name = place + "/append/" + formName + "/" + image::getElementTypeName(inType) +
                                 (inType == outType ? "" : std::string("-") + image::getElementTypeName(outType));
        benchmark::RegisterBenchmark(name.c_str(), [run, set = set, inType, outType](benchmark::State& state)
                                     { run(state, set, inType, outType); })
            ->UseManualTime()
            ->Unit(benchmark::kMicrosecond);
    }
}
} // namespace

void registerAppendBenchmarks()
{
    for (const eImageBufferType type : {image::eIBT_Int8, image::eIBT_UInt8, image::eIBT_Int16, image::eIBT_UInt16,
                                        image::eIBT_Int32, image::eIBT_UInt32, image::eIBT_Real})
    {
        registerRun("kernel", &runStrip, type, type);
        registerRun("image", &runImage, type, type);
    }
    for (const auto& [inType, outType] : {std::pair<eImageBufferType, eImageBufferType>(image::eIBT_Real, image::eIBT_UInt8),
                                          {image::eIBT_UInt8, image::eIBT_Real},
                                          {image::eIBT_UInt16, image::eIBT_UInt8},
                                          {image::eIBT_Int32, image::eIBT_UInt16},
                                          {image::eIBT_Real, image::eIBT_UInt32}})
    {
        registerRun("kernel", &runStrip, inType, outType);
    }
}
} // namespace kovis::bench
