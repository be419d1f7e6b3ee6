#pragma once

#include "KOVIS/KOVISHardware/CudaRuntime.h"
#include "KOVIS/KOVISUtil/ThrowMessage.h"

#include <string>

namespace kovis::image::detail
{
/// Makes the first usable GPU the device of this thread for a while. Throws KOVISImageException, from `place`, where there is
/// none.
class GpuScope
{
public:
    explicit GpuScope(const SourcePlace& place);

    /// Throws KOVISImageException, from the scope's place, for a call that failed; `request` names what was asked of the GPU.
    void check(const gpu::CudaResult& result, const std::string& request) const;

private:
    SourcePlace m_place;
    gpu::DeviceScope m_device;
};
} // namespace kovis::image::detail
