#include "KOVIS/KOVISBaseProcessing/BaseGpuProcessingAlgorithm.h"

#include "KOVIS/KOVISCore/ComputerInfoPool.h"
#include "KOVIS/KOVISHardware/CudaRuntime.h"

namespace kovis::processor
{
BaseGpuProcessingAlgorithm::BaseGpuProcessingAlgorithm() = default;
BaseGpuProcessingAlgorithm::~BaseGpuProcessingAlgorithm() = default;

BoolResult BaseGpuProcessingAlgorithm::mainProcess()
{
    DataTypeIdentifierColl types;
    getDataTypeIdColl(types);
    CudaFunctionIdentifier identifier;
    BoolResult result = getFunctionSelector().select(types, identifier);
    if (!result || !(result = preProcess()))
    {
        return result;
    }
    const hard::ComputerDescription& computer =
        core::ComputerInfoPool::getInstance().getLocalComputerInfo().getComputerDescription();
    const gpu::DeviceScope scope(computer.getGpuDescription().getCudaDevice(m_device));
    if (!scope.getResult())
    {
        return BoolResult(false, scope.getResult().m_text);
    }
    result = (this->*identifier.getFunction())();
    return result ? postProcess() : result;
}

BoolResult BaseGpuProcessingAlgorithm::preProcess()
{
    return BoolResult(true);
}

BoolResult BaseGpuProcessingAlgorithm::postProcess()
{
    return BoolResult(true);
}
} // namespace kovis::processor
