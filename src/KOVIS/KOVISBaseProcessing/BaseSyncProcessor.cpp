#include "KOVIS/KOVISBaseProcessing/BaseSyncProcessor.h"

#include "KOVIS/KOVISBaseProcessing/ProcessingMessages.h"

namespace kovis::processor
{
BaseSyncProcessor::BaseSyncProcessor() = default;
BaseSyncProcessor::~BaseSyncProcessor() = default;

BoolResult BaseSyncProcessor::runDerived()
{
    BoolResult result = initProcess();
    if (!result)
    {
        return result;
    }
    result = mainProcess();
    if (!result)
    {
        return result.getMessage().empty() ? BoolResult(false, processingText(eProcessorMessage::ePM_WorkFailed, getObjectName()))
                                           : result;
    }
    return endProcess();
}

eProcessorType BaseSyncProcessor::getProcessorType() const
{
    return eProcessorType::sync;
}
} // namespace kovis::processor
