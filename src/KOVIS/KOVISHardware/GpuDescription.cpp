#include "KOVIS/KOVISHardware/GpuDescription.h"

#include "KOVIS/KOVISHardware/KOVISHardwareLog.h"
#include "KOVIS/KOVISUtil/ThrowMessage.h"

namespace kovis::hard
{
namespace
{
[[noreturn]] void throwNoSuchDevice(int device, int nbDevices, const SourcePlace& place)
{
    throwMessage<KOVISHardwareException>(getKOVISHardwareLogMessageManager(), getKOVISHardwareLogger(),
                                         eKOVISHardwareMessage::eHM_NoSuchDevice, place, device, nbDevices);
}
} // namespace

int GpuDescription::getBlockSize2d(int device) const
{
    throwNoSuchDevice(device, getNbDevices(),
                      SourcePlace{"int kovis::hard::GpuDescription::getBlockSize2d(int) const",
                                  "KOVIS/KOVISHardware/GpuDescription.cpp", __LINE__});
}

int GpuDescription::getNbMultiProcessors(int device) const
{
    throwNoSuchDevice(device, getNbDevices(),
                      SourcePlace{"int kovis::hard::GpuDescription::getNbMultiProcessors(int) const",
                                  "KOVIS/KOVISHardware/GpuDescription.cpp", __LINE__});
}

int GpuDescription::getMaxThreadsPerBlock(int device) const
{
    throwNoSuchDevice(device, getNbDevices(),
                      SourcePlace{"int kovis::hard::GpuDescription::getMaxThreadsPerBlock(int) const",
                                  "KOVIS/KOVISHardware/GpuDescription.cpp", __LINE__});
}

int GpuDescription::getMaxThreadsPerMultiProcessor(int device) const
{
    throwNoSuchDevice(device, getNbDevices(),
                      SourcePlace{"int kovis::hard::GpuDescription::getMaxThreadsPerMultiProcessor(int) const",
                                  "KOVIS/KOVISHardware/GpuDescription.cpp", __LINE__});
}
} // namespace kovis::hard
