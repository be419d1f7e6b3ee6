// Launchers that run the kernel's threads one after the other on the host, in the place of those that launch it on a device.
#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/Gpu/AppendColorChannelImg_knlLauncher.h"
#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/Gpu/PixelTriples.h"
#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/Gpu/appendColorChannelThread.h"

#include "EmulatedLauncher.h"

namespace kovis::test
{
EmulatedLaunch& getEmulatedLaunch()
{
    static EmulatedLaunch g_launch;
    return g_launch;
}
} // namespace kovis::test

namespace kovis::imaproc::color::gpu
{
template <class T1, class T2, class Tout>
kovis::gpu::CudaResult AppendColorChannelImg_knlLauncher(kovis::gpu::LauncherInfo const* info, unsigned long sizeC1,
                                                         unsigned long sizeC2, T1 const** in1, T2 const** in2, Tout** out)
{
    test::EmulatedLaunch& launch = test::getEmulatedLaunch();
    launch.m_info = *info;
    launch.m_sizeC1 = sizeC1;
    launch.m_sizeC2 = sizeC2;
    ++launch.m_nbLaunches;
    if (launch.m_failure != nullptr)
    {
        return {false, launch.m_failure};
    }
    const AppendGrid grid = getAppendGrid(*info);
    GridIndex block;
    GridIndex thread;
    for (block.m_z = 0; block.m_z < grid.m_grid.m_z; ++block.m_z)
    {
        for (block.m_y = 0; block.m_y < grid.m_grid.m_y; ++block.m_y)
        {
            for (block.m_x = 0; block.m_x < grid.m_grid.m_x; ++block.m_x)
            {
                for (thread.m_y = 0; thread.m_y < grid.m_block.m_y; ++thread.m_y)
                {
                    for (thread.m_x = 0; thread.m_x < grid.m_block.m_x; ++thread.m_x)
                    {
                        appendColorChannelThread(block, grid.m_block, thread, *info, sizeC1, in1, in2, out);
                    }
                }
            }
        }
    }
    return {};
}

KOVIS_FOR_EACH_PIXEL_TRIPLE(KOVIS_INSTANTIATE_APPEND_LAUNCHER)
} // namespace kovis::imaproc::color::gpu
