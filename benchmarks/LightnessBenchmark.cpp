// The lightness per formula, form and pixel type, beside a plain copy of the planes and a plain loop that reads three planes and
// writes one: one strip that stays in the level 2 cache, run again and again, and a whole image.
#include "KOVIS/KOVISBaseProcessing/AlgorithmFunctionSelector.h"
#include "KOVIS/KOVISCore/isAvailable.h"
#include "KOVIS/KOVISImage/ImageFactory.h"
#include "KOVISIPL/KOVISIPLColor/Processor/LightnessImg/LightnessImg.h"
#include "KOVISIPL/KOVISIPLColor/Processor/LightnessImg/LightnessImgLvl3.h"
#include "Timing.h"

#include <boost/make_shared.hpp>

#include <string>
#include <utility>

namespace kovis::bench
{
namespace
{
using imaproc::attr::eLightnessType;
using imaproc::color::LightnessImgLvl3;

constexpr std::pair<const char*, eLightnessType> g_formulas[] = {{"average", imaproc::attr::eLT_Average},
                                                                 {"lightness", imaproc::attr::eLT_Lightness},
                                                                 {"luminosity", imaproc::attr::eLT_Luminosity}};
constexpr std::pair<const char*, eInstructionSet::domain> g_forms[] = {{"generic", eInstructionSet::eIS_Generic},
                                                                       {"sse2", eInstructionSet::eIS_SSE2},
                                                                       {"avx", eInstructionSet::eIS_AVX},
                                                                       {"avx2", eInstructionSet::eIS_AVX2},
                                                                       {"avx512", eInstructionSet::eIS_AVX512}};

/// A plain loop with three planes in and one out, in the instructions that every processor has: the sum, or what of it the type
/// holds.
template <class T>
void addPlanes(const image::BaseImage& from, image::BaseImage& to)
{
    const T* const first = image::planeData<T>(from, 0);
    const T* const second = image::planeData<T>(from, 1);
    const T* const third = image::planeData<T>(from, 2);
    T* const sum = image::planeData<T>(to, 0);
    const unsigned long nbPixels = from.getSizeX() * from.getSizeY();
    for (unsigned long i = 0; i < nbPixels; ++i)
    {
        if constexpr (std::is_same_v<T, float>)
        {
            sum[i] = first[i] + second[i] + third[i];
        }
        else
        {
            using Unsigned = std::make_unsigned_t<T>;
            sum[i] = static_cast<T>(static_cast<Unsigned>(first[i]) + static_cast<Unsigned>(second[i]) +
                                    static_cast<Unsigned>(third[i]));
        }
    }
    benchmark::ClobberMemory();
}

/// Runs under a forced set beside the two references.
template <class T>
void runBesidePlainWork(benchmark::State& state, eInstructionSet::domain set, const std::function<void()>& work,
                        const image::BaseImage& in, image::BaseImage& out)
{
    processor::InstructionSetsIdentifier sets;
    sets.init(set);
    LightnessImgLvl3::forceInstructionSets(sets);
    const auto copy = image::createImage2d(in.getSizeX(), in.getSizeY(), image::eCGT_Rgb, in.getBufferType());
    runBeside(state, work, {{"loop", [&] { addPlanes<T>(in, out); }}, {"copy", [&] { copyPlanes(in, *copy); }}},
              in.getSizeX() * in.getSizeY());
    LightnessImgLvl3::releaseForcedInstructionSets();
}

template <class T>
void runStrip(benchmark::State& state, eLightnessType formula, eInstructionSet::domain set)
{
    constexpr unsigned long sizeX = 256;
    constexpr unsigned long sizeY = 64;
    constexpr image::eImageBufferType type = image::BufferTypeOf<T>::g_value;
    const auto in = makeImage(sizeX, sizeY, image::eCGT_Rgb, type);
    const auto out = image::createImage2d(sizeX, sizeY, image::eCGT_Grey, type);
    const auto processor = LightnessImgLvl3::createProcessor();
    processor->init(processor::ePRP_NoRules);
    processor->set<imaproc::attr::InColorYStrip2d>(image::makeInputStrip(in, 0, sizeY));
    processor->set<imaproc::attr::InLightnessType>(formula);
    processor->set<imaproc::attr::OutLightYStrip2d>(
        boost::make_shared<image::OutputImageYStrip2d>(out, ElementsRange(0, sizeX * sizeY), image::eStripElements::exact));
    runBesidePlainWork<T>(
        state, set, [&] { processor::executeSyncRun(processor); }, *in, *out);
}

template <class T>
void runImage(benchmark::State& state, eLightnessType formula, eInstructionSet::domain set)
{
    constexpr unsigned long size = 2048;
    constexpr image::eImageBufferType type = image::BufferTypeOf<T>::g_value;
    const auto in = makeImage(size, size, image::eCGT_Rgb, type);
    const auto out = image::createImage2d(size, size, image::eCGT_Grey, type);
    runBesidePlainWork<T>(
        state, set, [&] { imaproc::color::lightnessImg(in, formula, out); }, *in, *out);
}

template <class T>
void registerType()
{
    const std::string type = image::getElementTypeName(image::BufferTypeOf<T>::g_value);
    for (const auto& [formulaName, formula] : g_formulas)
    {
        for (const auto& [formName, set] : g_forms)
        {
            if (!core::isAvailable(set) || (set == eInstructionSet::eIS_AVX && !std::is_same_v<T, float>))
            {
                continue;
            }
            using Run = void (*)(benchmark::State&, eLightnessType, eInstructionSet::domain);
            for (const auto& [place, run] : {std::pair<const char*, Run>("kernel", &runStrip<T>), {"image", &runImage<T>}})
            {
                const std::string name = std::string(place) + "/lightness/" + formulaName + "/" + formName + "/" + type;
                benchmark::RegisterBenchmark(name.c_str(), [run = run, formula = formula, set = set](benchmark::State& state)
                                             { run(state, formula, set); })
                    ->UseManualTime()
                    ->Unit(benchmark::kMicrosecond);
            }
        }
    }
}
} // namespace

void registerLightnessBenchmarks()
{
    registerType<signed char>();
    registerType<unsigned char>();
    registerType<short>();
    registerType<unsigned short>();
    registerType<int>();
    registerType<unsigned int>();
    registerType<float>();
}
} // namespace kovis::bench
