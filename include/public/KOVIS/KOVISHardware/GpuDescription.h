#pragma once

#include "KOVIS/KOVISHardware/KOVISHardwareExport.h"

#include <mutex>
#include <string>
#include <vector>

namespace kovis::hard
{
/// The GPUs of this computer that this build has code for, numbered from 0. The driver is asked once, at the first question, and
/// not while the library is loaded. Safe from any thread.
class KOVISHARDWARE_EXPORT GpuDescription
{
public:
    GpuDescription();
    ~GpuDescription();
    GpuDescription(const GpuDescription&) = delete;
    GpuDescription& operator=(const GpuDescription&) = delete;

    int getNbDevices() const;
    /// Why there is none, in the words of the CUDA runtime where it gave a reason; empty where there is one.
    const std::string& getReasonForNone() const;

    /// Each throws KOVISHardwareException for a device that is not there.
    /// Threads along one side of the square blocks that suit the device: 1 to 32.
    int getBlockSize2d(int device) const;
    int getNbMultiProcessors(int device) const;
    int getMaxThreadsPerBlock(int device) const;
    int getMaxThreadsPerMultiProcessor(int device) const;
    /// The number that the CUDA runtime gives the device, which counts those without code too.
    int getCudaDevice(int device) const;
    const std::string& getName(int device) const;

private:
    struct Device
    {
        std::string m_name;
        int m_cudaDevice;
        int m_blockSize2d;
        int m_nbMultiProcessors;
        int m_maxThreadsPerBlock;
        int m_maxThreadsPerMultiProcessor;
    };

    const std::vector<Device>& askDevices() const;
    void readDevices() const;
    const Device& getDevice(int device, const char* function) const;

    mutable std::once_flag m_asked;
    mutable std::vector<Device> m_devices;
    mutable std::string m_reasonForNone;
};
} // namespace kovis::hard
