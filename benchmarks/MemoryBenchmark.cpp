// What a run takes beside its images: working planes, staging and the framework's own objects, at sizes from one row to one
// column.
#include "KOVIS/KOVISCore/Scheduler.h"
#include "KOVIS/KOVISImage/ImageFactory.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImg.h"
#include "Timing.h"

#include <algorithm>
#include <fstream>
#include <string>

namespace kovis::bench
{
namespace
{
// A line of /proc/self/status, in KiB.
long getStatus(const std::string& key)
{
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
    {
        if (line.rfind(key + ":", 0) == 0)
        {
            return std::stol(line.substr(key.size() + 1));
        }
    }
    return 0;
}

// A chain of three entries, which needs working planes, into a result whose pages are there already.
void measureMemory(benchmark::State& state, unsigned long sizeX, unsigned long sizeY)
{
    const boost::shared_ptr<const image::BaseImage> input = makeImage(sizeX, sizeY, image::eCGT_YCbCr, image::eIBT_UInt8);
    const auto output = makeImage(sizeX, sizeY, image::eCGT_HSV, image::eIBT_Real);
    long peak = 0;
    for ([[maybe_unused]] auto iteration : state)
    {
        std::ofstream("/proc/self/clear_refs") << 5; // the high-water mark starts anew
        const long before = getStatus("VmRSS");
        imaproc::color::colorConvertImg(input, image::eCGT_HSV, output);
        peak = std::max(peak, getStatus("VmHWM") - before);
    }
    state.counters["KiB_over_images"] = static_cast<double>(peak);
    state.counters["KiB_per_thread"] = static_cast<double>(peak) / core::getMaxConcurrency();
}
} // namespace

void registerMemoryBenchmarks()
{
    struct Size
    {
        unsigned long m_x;
        unsigned long m_y;
    };
    for (const Size size : {Size{20000000, 1}, Size{6000, 4000}, Size{1, 5000000}})
    {
        const std::string name = "memory/ycbcr_u8_to_hsv_f32/" + std::to_string(size.m_x) + "x" + std::to_string(size.m_y);
        benchmark::RegisterBenchmark(name.c_str(), [size](benchmark::State& state) { measureMemory(state, size.m_x, size.m_y); })
            ->Iterations(3)
            ->Unit(benchmark::kMillisecond)
            ->UseRealTime();
    }
}
} // namespace kovis::bench
