#pragma once

#include "KOVIS/KOVISHardware/KOVISHardwareExport.h"

namespace kovis::hard
{
/// The GPUs of this computer. Built without device code it lists none.
class KOVISHARDWARE_EXPORT GpuDescription
{
public:
    int getNbDevices() const { return 0; }

    /// Each throws KOVISHardwareException for a device that is not there; devices count from 0.
    int getBlockSize2d(int device) const;
    int getNbMultiProcessors(int device) const;
    int getMaxThreadsPerBlock(int device) const;
    int getMaxThreadsPerMultiProcessor(int device) const;
};
} // namespace kovis::hard
