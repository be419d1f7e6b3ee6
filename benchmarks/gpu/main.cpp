#include "GpuBenchmark.h"

#include "KOVIS/KOVISCore/ComputerInfoPool.h"

#include <cstdio>

int main()
{
    const kovis::hard::GpuDescription& gpus =
        kovis::core::ComputerInfoPool::getInstance().getLocalComputerInfo().getComputerDescription().getGpuDescription();
    if (gpus.getNbDevices() == 0)
    {
        std::fprintf(stderr, "kovis-gpu-benchmark: there is no usable GPU: %s\n", gpus.getReasonForNone().c_str());
        return 1;
    }
    std::printf("%s, %d multiprocessors, blocks of %d x %d\n", gpus.getName(0).c_str(), gpus.getNbMultiProcessors(0),
                gpus.getBlockSize2d(0), gpus.getBlockSize2d(0));
    return runGpuBenchmark(gpus.getCudaDevice(0), gpus.getBlockSize2d(0));
}
