#pragma once

#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/Gpu/appendColorChannelThread.h"

namespace kovis::imaproc::color::gpu
{
/// One thread per pixel and channel, in a grid as getAppendGrid tells it.
template <class T1, class T2, class Tout>
__global__ void AppendColorChannelImg_knl(kovis::gpu::LauncherInfo info, unsigned long sizeC1, unsigned long, T1 const** in1,
                                          T2 const** in2, Tout** out)
{
    appendColorChannelThread<T1, T2, Tout>({blockIdx.x, blockIdx.y, blockIdx.z}, {blockDim.x, blockDim.y, blockDim.z},
                                           {threadIdx.x, threadIdx.y, threadIdx.z}, info, sizeC1, in1, in2, out);
}
} // namespace kovis::imaproc::color::gpu
