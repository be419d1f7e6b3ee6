// Loading and unloading the colour module: every static initialiser of it and of the libraries that go with it.
#include <benchmark/benchmark.h>
#include <dlfcn.h>

namespace
{
void BM_loadModule(benchmark::State& state)
{
    for ([[maybe_unused]] auto iteration : state)
    {
        void* module = dlopen(KOVIS_MODULE_PATH, RTLD_NOW | RTLD_LOCAL);
        if (module == nullptr)
        {
            state.SkipWithError(dlerror());
            return;
        }
        state.PauseTiming();
        dlclose(module);
        state.ResumeTiming();
    }
}
BENCHMARK(BM_loadModule)->Unit(benchmark::kMillisecond)->UseRealTime();
} // namespace

BENCHMARK_MAIN();
