#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/Gpu/AppendColorChannelImg_knlLauncher.h"

#include "KOVIS/KOVISHardware/CudaRuntime.h"
#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/Gpu/PixelTriples.h"

// The launchers of a build without device code.

namespace kovis::imaproc::color::gpu
{
template <class T1, class T2, class Tout>
kovis::gpu::CudaResult AppendColorChannelImg_knlLauncher(kovis::gpu::LauncherInfo const*, unsigned long, unsigned long,
                                                         T1 const**, T2 const**, Tout**)
{
    return {false, kovis::gpu::g_noDeviceCode};
}

KOVIS_FOR_EACH_PIXEL_TRIPLE(KOVIS_INSTANTIATE_APPEND_LAUNCHER)
} // namespace kovis::imaproc::color::gpu
