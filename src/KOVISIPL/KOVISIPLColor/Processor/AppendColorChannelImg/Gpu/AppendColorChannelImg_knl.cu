// The device code of the channel append: compiled by the CUDA compiler alone, C++17.

#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/Gpu/AppendColorChannelImg_knl.cuh"
#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/Gpu/AppendColorChannelImg_knlLauncher.h"
#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/Gpu/PixelTriples.h"

#include <cuda_runtime.h>

namespace kovis::imaproc::color::gpu
{
namespace
{
// Waits for the device, then asks for what went wrong since: also where the launch itself did not take place.
kovis::gpu::CudaResult finishLaunch()
{
    cudaDeviceSynchronize();
    const cudaError_t error = cudaGetLastError();
    return error == cudaSuccess ? kovis::gpu::CudaResult{true, ""} : kovis::gpu::CudaResult{false, cudaGetErrorString(error)};
}
} // namespace

template <class T1, class T2, class Tout>
kovis::gpu::CudaResult AppendColorChannelImg_knlLauncher(kovis::gpu::LauncherInfo const* info, unsigned long sizeC1,
                                                         unsigned long sizeC2, T1 const** in1, T2 const** in2, Tout** out)
{
    const AppendGrid grid = getAppendGrid(*info);
    AppendColorChannelImg_knl<T1, T2, Tout>
        <<<dim3(grid.m_grid.m_x, grid.m_grid.m_y, grid.m_grid.m_z), dim3(grid.m_block.m_x, grid.m_block.m_y, grid.m_block.m_z)>>>(
            *info, sizeC1, sizeC2, in1, in2, out);
    return finishLaunch();
}

KOVIS_FOR_EACH_PIXEL_TRIPLE(KOVIS_INSTANTIATE_APPEND_LAUNCHER)
} // namespace kovis::imaproc::color::gpu
