#pragma once

#include "KOVIS/KOVISBaseProcessing/BaseSyncProcessor.h"
#include "KOVIS/KOVISBaseProcessing/CudaFunctionSelector.h"
#include "KOVIS/KOVISBaseProcessing/KOVISBaseProcessingExport.h"

#include <cstdint>

namespace kovis::processor
{
/// A processor whose work is one launch of a GPU kernel, picked by the data types of its attributes. mainProcess: pick the
/// kernel; preProcess; launch it, with the device as that of this thread; postProcess. The launch waits for the device.
class KOVISBASEPROCESSING_EXPORT BaseGpuProcessingAlgorithm : public BaseSyncProcessor
{
public:
    ~BaseGpuProcessingAlgorithm() override;

    /// The GPU that the kernel runs on, by its number in hard::GpuDescription: the first, where images are made.
    std::int32_t getDevice() const { return m_device; }

protected:
    BaseGpuProcessingAlgorithm();

    BoolResult mainProcess() override;
    virtual const CudaFunctionSelector& getFunctionSelector() const = 0;
    virtual void getDataTypeIdColl(DataTypeIdentifierColl& types) const = 0;
    virtual BoolResult preProcess();
    virtual BoolResult postProcess();

private:
    std::int32_t m_device = 0;
};
} // namespace kovis::processor
