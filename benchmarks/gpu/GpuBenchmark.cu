// The append of two float planes of 4096 x 4096 on the GPU beside a device-to-device copy of as many bytes, both between device
// events: the kernel without the wait of its launcher. Sides of blocks other than the device's own are timed too.

#include "GpuBenchmark.h"

#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/Gpu/AppendColorChannelImg_knl.cuh"

#include <cuda_runtime.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <vector>

namespace
{
constexpr unsigned long g_side = 4096;
constexpr std::size_t g_nbBytes = g_side * g_side * sizeof(float);
constexpr int g_nbTurns = 50;

void check(cudaError_t error, const char* what)
{
    if (error != cudaSuccess)
    {
        std::fprintf(stderr, "kovis-gpu-benchmark: %s: %s\n", what, cudaGetErrorString(error));
        std::exit(1);
    }
}

/// The median of the milliseconds that the work takes on the device.
template <class TWork>
float time(const TWork& work)
{
    cudaEvent_t begin;
    cudaEvent_t end;
    check(cudaEventCreate(&begin), "an event");
    check(cudaEventCreate(&end), "an event");
    std::vector<float> turns;
    for (int turn = 0; turn < g_nbTurns; ++turn)
    {
        check(cudaEventRecord(begin), "an event");
        work();
        check(cudaEventRecord(end), "an event");
        check(cudaEventSynchronize(end), "the work");
        float milliseconds = 0.0F;
        check(cudaEventElapsedTime(&milliseconds, begin, end), "the time");
        turns.push_back(milliseconds);
    }
    check(cudaEventDestroy(begin), "an event");
    check(cudaEventDestroy(end), "an event");
    std::nth_element(turns.begin(), turns.begin() + g_nbTurns / 2, turns.end());
    return turns[g_nbTurns / 2];
}

template <class T>
T* makeTable(const std::vector<float*>& planes)
{
    T* pTable = nullptr;
    check(cudaMalloc(&pTable, planes.size() * sizeof(float*)), "memory");
    check(cudaMemcpy(pTable, planes.data(), planes.size() * sizeof(float*), cudaMemcpyHostToDevice), "a table");
    return pTable;
}
} // namespace

int runGpuBenchmark(int cudaDevice, int ownSide)
{
    using namespace kovis::imaproc::color::gpu;
    check(cudaSetDevice(cudaDevice), "the device");
    // One run of memory each, so that the copy is one copy.
    float* pSource = nullptr;
    float* pTarget = nullptr;
    check(cudaMalloc(&pSource, 2 * g_nbBytes), "memory");
    check(cudaMalloc(&pTarget, 2 * g_nbBytes), "memory");
    check(cudaMemset(pSource, 0x3F, 2 * g_nbBytes), "memory");
    const auto in1 = makeTable<float const*>({pSource});
    const auto in2 = makeTable<float const*>({pSource + g_side * g_side});
    const auto out = makeTable<float*>({pTarget, pTarget + g_side * g_side});

    kovis::gpu::LauncherInfo info;
    info.m_sizeX = info.m_sizeY = g_side;
    info.m_sizeZ = info.m_sizeT = 1;
    info.m_sizeC = 2;
    const float copy = time([&] { check(cudaMemcpyAsync(pTarget, pSource, 2 * g_nbBytes, cudaMemcpyDeviceToDevice), "a copy"); });
    std::printf("copy      %8.4f ms  %7.1f GB/s read and written\n", copy, 4e-6 * g_nbBytes / copy);
    float ownRatio = 0.0F;
    for (const int side : {8, 16, 32})
    {
        info.m_blockSize2d = side;
        const AppendGrid grid = getAppendGrid(info);
        const float append = time(
            [&]
            {
                AppendColorChannelImg_knl<float, float, float>
                    <<<dim3(grid.m_grid.m_x, grid.m_grid.m_y, grid.m_grid.m_z), dim3(grid.m_block.m_x, grid.m_block.m_y)>>>(
                        info, 1, 1, in1, in2, out);
                check(cudaGetLastError(), "a launch");
            });
        ownRatio = side == ownSide ? copy / append : ownRatio;
        std::printf("append %2d %8.4f ms  %7.1f GB/s  %.2f of the copy's speed%s\n", side, append, 4e-6 * g_nbBytes / append,
                    copy / append, side == ownSide ? "  <- the device's own side" : "");
    }
    std::printf("%s: 0.8 of the copy is asked for\n", ownRatio >= 0.8F ? "reached" : "MISSED");
    return ownRatio >= 0.8F ? 0 : 1;
}
