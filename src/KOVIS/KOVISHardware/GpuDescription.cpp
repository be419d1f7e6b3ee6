#include "KOVIS/KOVISHardware/GpuDescription.h"

#include "KOVIS/KOVISHardware/CudaRuntime.h"
#include "KOVIS/KOVISHardware/KOVISHardwareLog.h"
#include "KOVIS/KOVISHardware/deviceRules.h"
#include "KOVIS/KOVISUtil/ThrowMessage.h"

namespace kovis::hard
{
GpuDescription::GpuDescription() = default;
GpuDescription::~GpuDescription() = default;

void GpuDescription::readDevices() const
{
    gpu::CudaRuntime& runtime = gpu::CudaRuntime::getInstance();
    int nbDevices = 0;
    gpu::CudaResult result = runtime.countDevices(nbDevices);
    if (!result)
    {
        m_reasonForNone = result.m_text;
        return;
    }
    m_reasonForNone = "the CUDA runtime lists no device";
    for (int device = 0; device < nbDevices; ++device)
    {
        gpu::DeviceProperties properties;
        result = runtime.readProperties(device, properties);
        if (!result)
        {
            m_reasonForNone = result.m_text;
        }
        else if (!runtime.hasCodeFor(properties.m_major, properties.m_minor))
        {
            m_reasonForNone = "this build has no device code for " + properties.m_name + ", of compute capability " +
                              std::to_string(properties.m_major) + "." + std::to_string(properties.m_minor);
        }
        else
        {
            const int side = gpu::getBlockSide(properties.m_maxThreadsPerBlock, properties.m_maxThreadsPerMultiProcessor);
            m_devices.push_back({properties.m_name, device, side, properties.m_nbMultiProcessors, properties.m_maxThreadsPerBlock,
                                 properties.m_maxThreadsPerMultiProcessor});
        }
    }
    if (!m_devices.empty())
    {
        m_reasonForNone.clear();
    }
}

const std::vector<GpuDescription::Device>& GpuDescription::askDevices() const
{
    std::call_once(m_asked, [this] { readDevices(); });
    return m_devices;
}

const GpuDescription::Device& GpuDescription::getDevice(int device, const char* function) const
{
    const std::vector<Device>& devices = askDevices();
    const SourcePlace place{function, "KOVIS/KOVISHardware/GpuDescription.cpp", __LINE__};
    if (devices.empty())
    {
        throwMessage<KOVISHardwareException>(getKOVISHardwareLogMessageManager(), getKOVISHardwareLogger(),
                                             eKOVISHardwareMessage::eHM_NoDevice, place, m_reasonForNone);
    }
    if (device < 0 || static_cast<std::size_t>(device) >= devices.size())
    {
        throwMessage<KOVISHardwareException>(getKOVISHardwareLogMessageManager(), getKOVISHardwareLogger(),
                                             eKOVISHardwareMessage::eHM_NoSuchDevice, place, device, devices.size());
    }
    return devices[static_cast<std::size_t>(device)];
}

int GpuDescription::getNbDevices() const
{
    return static_cast<int>(askDevices().size());
}

const std::string& GpuDescription::getReasonForNone() const
{
    askDevices();
    return m_reasonForNone;
}

int GpuDescription::getBlockSize2d(int device) const
{
    return getDevice(device, "int kovis::hard::GpuDescription::getBlockSize2d(int) const").m_blockSize2d;
}

int GpuDescription::getNbMultiProcessors(int device) const
{
    return getDevice(device, "int kovis::hard::GpuDescription::getNbMultiProcessors(int) const").m_nbMultiProcessors;
}

int GpuDescription::getMaxThreadsPerBlock(int device) const
{
    return getDevice(device, "int kovis::hard::GpuDescription::getMaxThreadsPerBlock(int) const").m_maxThreadsPerBlock;
}

int GpuDescription::getMaxThreadsPerMultiProcessor(int device) const
{
    return getDevice(device, "int kovis::hard::GpuDescription::getMaxThreadsPerMultiProcessor(int) const")
        .m_maxThreadsPerMultiProcessor;
}

int GpuDescription::getCudaDevice(int device) const
{
    return getDevice(device, "int kovis::hard::GpuDescription::getCudaDevice(int) const").m_cudaDevice;
}

const std::string& GpuDescription::getName(int device) const
{
    return getDevice(device, "const std::string& kovis::hard::GpuDescription::getName(int) const").m_name;
}
} // namespace kovis::hard
