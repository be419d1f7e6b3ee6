#pragma once

#include "KOVIS/KOVISHardware/CudaResult.h"
#include "KOVIS/KOVISHardware/LauncherInfo.h"

namespace kovis::imaproc::color::gpu
{
/// Launches the kernel of these pixel types on the current device and waits for its end. The plane arrays lie in device memory,
/// one pointer per channel; sizeC2 is not read. Defined for all 343 triples of pixel types, by the device code or by what stands
/// in for it in a build without.
template <class T1, class T2, class Tout>
kovis::gpu::CudaResult AppendColorChannelImg_knlLauncher(kovis::gpu::LauncherInfo const* info, unsigned long sizeC1,
                                                         unsigned long sizeC2, T1 const** in1, T2 const** in2, Tout** out);
} // namespace kovis::imaproc::color::gpu

#define KOVIS_INSTANTIATE_APPEND_LAUNCHER(T1, T2, TOUT)                                                                          \
    template kovis::gpu::CudaResult AppendColorChannelImg_knlLauncher<T1, T2, TOUT>(                                             \
        kovis::gpu::LauncherInfo const*, unsigned long, unsigned long, T1 const**, T2 const**, TOUT**);
