#pragma once

#include "KOVIS/KOVISBaseProcessing/BaseProcessor.h"
#include "KOVIS/KOVISBaseProcessing/KOVISBaseProcessingExport.h"

namespace kovis::processor
{
/// A processor that does its work itself, on the thread that runs it. A run: initProcess, mainProcess, endProcess.
class KOVISBASEPROCESSING_EXPORT BaseSyncProcessor : public BaseProcessor
{
public:
    ~BaseSyncProcessor() override;

protected:
    BaseSyncProcessor();

    BoolResult runDerived() override;
    eProcessorType getProcessorType() const override;
    virtual BoolResult mainProcess() = 0;
};
} // namespace kovis::processor
