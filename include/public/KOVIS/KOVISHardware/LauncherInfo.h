#pragma once

namespace kovis::gpu
{
/// What the launcher of a GPU kernel and the kernel itself know of the device and of the output image. Passed to the device by
/// value: plain C++17, fields in this order.
struct LauncherInfo
{
    int m_nbMultiProcessors = 0;
    int m_maxThreadsPerMultiProcessor = 0;
    int m_maxThreadsPerBlock = 0;
    int m_blockSize2d = 0; ///< threads along one side of a square block, in the low 16 bits; never 0
    int m_reservedValue = 0;
    unsigned long m_sizeX = 0;
    unsigned long m_sizeY = 0;
    unsigned long m_sizeZ = 0;
    unsigned long m_sizeC = 0;
    unsigned long m_sizeT = 0;
};
} // namespace kovis::gpu
