// The device code of the channel append: compiled by the CUDA compiler alone, C++17.

#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/Gpu/AppendColorChannelImg_knl.cuh"
#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/Gpu/AppendColorChannelImg_knlLauncher.h"
#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/Gpu/PixelTriples.h"

#include "KOVIS/KOVISHardware/CudaRuntime.h"

#include <cuda_runtime.h>

namespace kovis::imaproc::color::gpu
{
namespace
{
kovis::gpu::CudaResult toResult(cudaError_t error)
{
    return error == cudaSuccess ? kovis::gpu::CudaResult{true, ""} : kovis::gpu::CudaResult{false, cudaGetErrorString(error)};
}

// The runtime in this library is another than that of the platform, which made a device that of this thread: it follows suit,
// for up to CUDA 11 a device that was only set is not seen by another runtime.
kovis::gpu::CudaResult takeDeviceOfThread()
{
    int device = 0;
    kovis::gpu::CudaResult result = kovis::gpu::CudaRuntime::getInstance().getDevice(device);
    if (result && !(result = toResult(cudaSetDevice(device))))
    {
        // The error is told here: it must not be found again by a later call.
        cudaGetLastError();
    }
    return result;
}

// Waits for the device, then asks for what went wrong since: also where the launch itself did not take place.
kovis::gpu::CudaResult finishLaunch()
{
    cudaDeviceSynchronize();
    return toResult(cudaGetLastError());
}
} // namespace

template <class T1, class T2, class Tout>
kovis::gpu::CudaResult AppendColorChannelImg_knlLauncher(kovis::gpu::LauncherInfo const* info, unsigned long sizeC1,
                                                         unsigned long sizeC2, T1 const** in1, T2 const** in2, Tout** out)
{
    if (const kovis::gpu::CudaResult result = takeDeviceOfThread(); !result)
    {
        return result;
    }
    const AppendGrid grid = getAppendGrid(*info);
    AppendColorChannelImg_knl<T1, T2, Tout>
        <<<dim3(grid.m_grid.m_x, grid.m_grid.m_y, grid.m_grid.m_z), dim3(grid.m_block.m_x, grid.m_block.m_y, grid.m_block.m_z)>>>(
            *info, sizeC1, sizeC2, in1, in2, out);
    return finishLaunch();
}

KOVIS_FOR_EACH_PIXEL_TRIPLE(KOVIS_INSTANTIATE_APPEND_LAUNCHER)
} // namespace kovis::imaproc::color::gpu
