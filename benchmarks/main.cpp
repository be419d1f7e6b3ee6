#include <benchmark/benchmark.h>

namespace kovis::bench
{
void registerAppendBenchmarks();
void registerImageBenchmarks();
void registerKernelBenchmarks();
void registerLightnessBenchmarks();
void registerMemoryBenchmarks();
} // namespace kovis::bench

int main(int argc, char** argv)
{
    kovis::bench::registerAppendBenchmarks();
    kovis::bench::registerImageBenchmarks();
    kovis::bench::registerKernelBenchmarks();
    kovis::bench::registerLightnessBenchmarks();
    kovis::bench::registerMemoryBenchmarks();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
    {
        return 1;
    }
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
