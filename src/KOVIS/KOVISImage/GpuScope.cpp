#include "KOVIS/KOVISImage/GpuScope.h"

#include "KOVIS/KOVISCore/ComputerInfoPool.h"
#include "KOVIS/KOVISImage/KOVISImageLogMessages.h"

namespace kovis::image::detail
{
namespace
{
int getFirstDevice(const SourcePlace& place)
{
    const hard::GpuDescription& gpus =
        core::ComputerInfoPool::getInstance().getLocalComputerInfo().getComputerDescription().getGpuDescription();
    if (gpus.getNbDevices() == 0)
    {
        throwImageMessage(eImageMessage::eIM_NoGpu, place, gpus.getReasonForNone());
    }
    return gpus.getCudaDevice(0);
}
} // namespace

GpuScope::GpuScope(const SourcePlace& place) : m_place(place), m_device(getFirstDevice(place))
{
    check(m_device.getResult(), "to be used");
}

void GpuScope::check(const gpu::CudaResult& result, const std::string& request) const
{
    if (!result)
    {
        throwImageMessage(eImageMessage::eIM_GpuCall, m_place, request, result.m_text);
    }
}
} // namespace kovis::image::detail
